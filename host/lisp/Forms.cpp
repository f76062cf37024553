// The forms of the language: what gets its arguments unevaluated.
#include "host/lisp/Builtins.h"
#include "host/lisp/Printer.h"

namespace lisp {
namespace {

[[noreturn]] void FailForm(std::u16string_view form, const Value& arguments) {
    throw Error(std::u16string(form) + u": malformed form: " + Excerpt(arguments));
}

// The list behind its first `count` elements; Error when it has fewer.
const Value& Behind(std::u16string_view form, const Value& arguments, int count) {
    const Value* rest = &arguments;
    for (; count > 0; --count) {
        if (!rest->Is(Kind::List)) FailForm(form, arguments);
        rest = &rest->Tail();
    }
    return *rest;
}

Value Quote(Interpreter&, const Value& arguments) {
    if (!Behind(u"QUOTE", arguments, 1).IsNil()) FailForm(u"QUOTE", arguments);
    return arguments.Head();
}

Value FunctionOf(Interpreter& lisp, const Value& arguments) {
    if (!Behind(u"FUNCTION", arguments, 1).IsNil()) FailForm(u"FUNCTION", arguments);
    return arguments.Head().Is(Kind::List) ? lisp.Eval(arguments.Head()) : arguments.Head();
}

Value Lambda(Interpreter& lisp, const Value& arguments) {
    const Value& body = Behind(u"LAMBDA", arguments, 1);
    return lisp.Function(arguments.Head(), body);
}

Value Defun(Interpreter& lisp, const Value& arguments) {
    const Value& body = Behind(u"DEFUN", arguments, 2);
    lisp.Assign(arguments.Head(), lisp.Function(arguments.Tail().Head(), body));
    return arguments.Head();
}

Value Setq(Interpreter& lisp, const Value& arguments) {
    Value value;
    for (const Value* rest = &arguments; !rest->IsNil();) {
        const Value& next = Behind(u"SETQ", *rest, 2);
        value = lisp.Eval(rest->Tail().Head());
        lisp.Assign(rest->Head(), value);
        rest = &next;
    }
    return value;
}

Value If(Interpreter& lisp, const Value& arguments) {
    const Value& otherwise = Behind(u"IF", arguments, 2);
    if (!otherwise.IsNil() && !Behind(u"IF", otherwise, 1).IsNil()) FailForm(u"IF", arguments);
    if (!lisp.Eval(arguments.Head()).IsNil()) return lisp.Eval(arguments.Tail().Head());
    return otherwise.IsNil() ? Value() : lisp.Eval(otherwise.Head());
}

Value Cond(Interpreter& lisp, const Value& arguments) {
    for (const Value* rest = &arguments; !rest->IsNil(); rest = &rest->Tail()) {
        if (!rest->Is(Kind::List) || !rest->Head().Is(Kind::List)) FailForm(u"COND", arguments);
        const Value& clause = rest->Head();
        const Value test = lisp.Eval(clause.Head());
        if (!test.IsNil()) return clause.Tail().IsNil() ? test : lisp.EvalBody(clause.Tail());
    }
    return {};
}

// T or nil and not the value that decided, as CAD programs have it.
Value And(Interpreter& lisp, const Value& arguments) {
    for (const Value* rest = &arguments; rest->Is(Kind::List); rest = &rest->Tail())
        if (lisp.Eval(rest->Head()).IsNil()) return {};
    return lisp.True();
}

Value Or(Interpreter& lisp, const Value& arguments) {
    for (const Value* rest = &arguments; rest->Is(Kind::List); rest = &rest->Tail())
        if (!lisp.Eval(rest->Head()).IsNil()) return lisp.True();
    return {};
}

Value While(Interpreter& lisp, const Value& arguments) {
    const Value& body = Behind(u"WHILE", arguments, 1);
    Value value;
    while (!lisp.Eval(arguments.Head()).IsNil()) {
        lisp.CheckInterrupt();
        value = lisp.EvalBody(body);
    }
    return value;
}

Value Repeat(Interpreter& lisp, const Value& arguments) {
    const Value& body = Behind(u"REPEAT", arguments, 1);
    const Value count = lisp.Eval(arguments.Head());
    if (!count.Is(Kind::Integer)) FailForm(u"REPEAT", arguments);
    Value value;
    for (std::int32_t left = count.AsInteger(); left > 0; --left) {
        lisp.CheckInterrupt();
        value = lisp.EvalBody(body);
    }
    return value;
}

Value Foreach(Interpreter& lisp, const Value& arguments) {
    const Value& body = Behind(u"FOREACH", arguments, 2);
    const Value list = lisp.Eval(arguments.Tail().Head());
    Value value;
    const Value* rest = &list;
    for (; rest->Is(Kind::List); rest = &rest->Tail()) {
        Bindings variable(lisp);
        variable.Bind(arguments.Head(), rest->Head());
        value = lisp.EvalBody(body);
    }
    if (!rest->IsNil()) throw Error(u"FOREACH: a list expected, not " + Excerpt(list));
    return value;
}

constexpr struct {
    std::u16string_view name;
    Value (*function)(Interpreter&, const Value&);
} forms[] = {
    {u"QUOTE", Quote},
    {u"FUNCTION", FunctionOf},
    {u"LAMBDA", Lambda},
    {u"DEFUN", Defun},
    {u"SETQ", Setq},
    {u"IF", If},
    {u"COND", Cond},
    {u"AND", And},
    {u"OR", Or},
    {u"WHILE", While},
    {u"REPEAT", Repeat},
    {u"FOREACH", Foreach},
    {u"PROGN", [](Interpreter& lisp, const Value& body) { return lisp.EvalBody(body); }},
};

}  // namespace

void DefineForms(Interpreter& interpreter) {
    for (const auto& form : forms) interpreter.DefineSpecial(form.name, form.function);
}

}  // namespace lisp
