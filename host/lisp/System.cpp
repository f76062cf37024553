// Output, and the roads into the evaluator: READ, EVAL, TYPE, SET.
#include "host/lisp/Builtins.h"
#include "host/lisp/Printer.h"

namespace lisp {
namespace {

void WriteValue(const Arguments& arguments, Quoting quoting, std::u16string_view before,
                std::u16string_view behind) {
    std::u16string text(before);
    const std::size_t limit = arguments.lisp.heap().Limit() / sizeof(char16_t);
    if (!AppendPrinted(text, arguments[0], quoting, limit))
        arguments.Fail(u"the text is too long: " + Excerpt(arguments[0]));
    arguments.lisp.Write(text += behind);
}

// Without an argument nothing is written, and the value is the symbol with the empty name, so
// that a console which shows the value shows nothing.
template <Quoting quoting>
Value Print(const Arguments& arguments) {
    if (arguments.size() == 0) return arguments.lisp.Intern(u"");
    WriteValue(arguments, quoting, u"", u"");
    return arguments[0];
}

Value PrintLine(const Arguments& arguments) {
    WriteValue(arguments, Quoting::Readable, u"\n", u" ");
    return arguments[0];
}

Value Prompt(const Arguments& arguments) {
    arguments.lisp.Write(arguments.Text(0));
    return {};
}

Value Terpri(const Arguments& arguments) {
    arguments.lisp.Write(u"\n");
    return {};
}

Value Type(const Arguments& arguments) {
    static constexpr std::u16string_view names[] = {u"",     u"INT",   u"REAL", u"SYM", u"STR",
                                                    u"LIST", u"USUBR", u"SUBR", u"SUBR"};
    if (arguments[0].IsNil()) return {};
    return arguments.lisp.Intern(names[static_cast<std::size_t>(arguments[0].kind())]);
}

Value Set(const Arguments& arguments) {
    arguments.lisp.Assign(arguments[0], arguments[1]);
    return arguments[1];
}

constexpr Builtin table[] = {
    {u"PRINC", 0, 1, Print<Quoting::Plain>},
    {u"PRIN1", 0, 1, Print<Quoting::Readable>},
    {u"PRINT", 1, 1, PrintLine},
    {u"PROMPT", 1, 1, Prompt},
    {u"TERPRI", 0, 0, Terpri},
    {u"TYPE", 1, 1, Type},
    {u"SET", 2, 2, Set},
    {u"EVAL", 1, 1, [](const Arguments& a) { return a.lisp.Eval(a[0]); }},
    {u"READ", 1, 1, [](const Arguments& a) { return a.lisp.Read(a.Text(0)); }},
};

}  // namespace

void DefineSystem(Interpreter& interpreter) { DefineTable(interpreter, table); }

}  // namespace lisp
