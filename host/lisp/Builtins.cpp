// The arguments of a built-in function, and the tables together.
#include "host/lisp/Builtins.h"

#include "host/lisp/Printer.h"

namespace lisp {

std::int32_t Arguments::Integer(std::size_t i) const {
    if (!values_[i].Is(Kind::Integer)) FailType(u"an integer", values_[i]);
    return values_[i].AsInteger();
}

double Arguments::Number(std::size_t i) const {
    if (!values_[i].IsNumber()) FailType(u"a number", values_[i]);
    return values_[i].AsReal();
}

const std::u16string& Arguments::Text(std::size_t i) const {
    if (!values_[i].Is(Kind::String)) FailType(u"a string", values_[i]);
    return values_[i].AsString();
}

Values Arguments::Items(std::size_t i) const {
    Values items = NoValues(lisp.heap());
    const Value* rest = &values_[i];
    for (; rest->Is(Kind::List); rest = &rest->Tail()) items.push_back(rest->Head());
    if (!rest->IsNil()) FailType(u"a list", values_[i]);
    return items;
}

std::int32_t Arguments::IntegerOr(std::size_t i, std::int32_t absent) const {
    return i < size() ? Integer(i) : absent;
}

void Arguments::FailType(std::u16string_view expected, const Value& found) const {
    Fail(std::u16string(expected) + u" expected, not " + Excerpt(found));
}

void Arguments::Fail(std::u16string_view what) const {
    throw Error(std::u16string(function_) + u": " + std::u16string(what));
}

void DefineTable(Interpreter& interpreter, std::span<const Builtin> table) {
    for (const Builtin& row : table) {
        auto call = [name = row.name, function = row.function](Interpreter& lisp,
                                                               std::span<const Value> values) {
            return function(Arguments(lisp, name, values));
        };
        interpreter.Define(row.name, call, row.least, row.most);
    }
}

void DefineBuiltins(Interpreter& interpreter) {
    DefineForms(interpreter);
    DefineArithmetic(interpreter);
    DefineComparison(interpreter);
    DefineStrings(interpreter);
    DefineLists(interpreter);
    DefineSystem(interpreter);
}

}  // namespace lisp
