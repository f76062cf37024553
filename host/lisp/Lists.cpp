// Lists, and functions applied to them.
#include <algorithm>

#include "host/lisp/Builtins.h"

namespace lisp {
namespace {

// What the letters a and d between c and r choose, the last letter first.
Value Walk(const Arguments& arguments, std::u16string_view letters) {
    Value value = arguments[0];
    for (std::size_t i = letters.size(); i-- > 0 && !value.IsNil();) {
        if (!value.Is(Kind::List)) arguments.FailType(u"a list", value);
        value = letters[i] == u'A' ? value.Head() : value.Tail();
    }
    return value;
}

// CAR and CDR and their combinations of up to four letters.
void DefineWalks(Interpreter& interpreter) {
    for (std::size_t length = 1; length <= 4; ++length) {
        for (unsigned choice = 0; choice < 1u << length; ++choice) {
            std::u16string letters;
            for (std::size_t i = 0; i < length; ++i) letters += choice >> i & 1 ? u'D' : u'A';
            const std::u16string name = u"C" + letters + u"R";
            auto walk = [name, letters](Interpreter& lisp, std::span<const Value> values) {
                return Walk(Arguments(lisp, name, values), letters);
            };
            interpreter.Define(name, walk, 1, 1);
        }
    }
}

// The last part may be anything, and becomes the tail.
Value Append(const Arguments& arguments) {
    if (arguments.size() == 0) return {};
    Value list = arguments[arguments.size() - 1];
    for (std::size_t i = arguments.size() - 1; i-- > 0;)
        list = arguments.lisp.List(arguments.Items(i), std::move(list));
    return list;
}

Value Reverse(const Arguments& arguments) {
    Value reversed;
    for (const Value& item : arguments.Items(0)) reversed = arguments.lisp.Cons(item, reversed);
    return reversed;
}

Value Length(const Arguments& arguments) {
    std::int32_t length = 0;
    const Value* rest = &arguments[0];
    for (; rest->Is(Kind::List); rest = &rest->Tail()) ++length;
    if (!rest->IsNil()) arguments.FailType(u"a list", arguments[0]);
    return Value::Integer(length);
}

Value Nth(const Arguments& arguments) {
    std::int32_t left = arguments.Integer(0);
    if (left < 0) arguments.Fail(u"the position must not be negative");
    const Value* rest = &arguments[1];
    for (; rest->Is(Kind::List) && left > 0; --left) rest = &rest->Tail();
    if (!rest->Is(Kind::List) && !rest->IsNil()) arguments.FailType(u"a list", arguments[1]);
    return rest->IsNil() ? Value() : rest->Head();
}

Value Member(const Arguments& arguments) {
    const Value* rest = &arguments[1];
    for (; rest->Is(Kind::List); rest = &rest->Tail())
        if (AreEqual(arguments.lisp, arguments[0], rest->Head())) return *rest;
    if (!rest->IsNil()) arguments.FailType(u"a list", arguments[1]);
    return {};
}

Value Assoc(const Arguments& arguments) {
    const Value* rest = &arguments[1];
    for (; rest->Is(Kind::List); rest = &rest->Tail()) {
        const Value& entry = rest->Head();
        if (!entry.Is(Kind::List)) arguments.FailType(u"a list of lists", arguments[1]);
        if (AreEqual(arguments.lisp, arguments[0], entry.Head())) return entry;
    }
    if (!rest->IsNil()) arguments.FailType(u"a list", arguments[1]);
    return {};
}

Value Last(const Arguments& arguments) {
    const Values items = arguments.Items(0);
    return items.empty() ? Value() : items.back();
}

Value Mapcar(const Arguments& arguments) {
    Values rests = NoValues(arguments.lisp.heap());
    for (std::size_t i = 1; i < arguments.size(); ++i) rests.push_back(arguments[i]);
    Values results = NoValues(arguments.lisp.heap());
    Values heads = NoValues(arguments.lisp.heap());
    const auto more = [](const Value& rest) { return rest.Is(Kind::List); };
    while (std::all_of(rests.begin(), rests.end(), more)) {
        heads.clear();
        for (Value& rest : rests) {
            heads.push_back(rest.Head());
            rest = Value(rest.Tail());
        }
        results.push_back(arguments.lisp.Apply(arguments[0], heads));
    }
    for (const Value& rest : rests)
        if (!rest.IsNil() && !rest.Is(Kind::List)) arguments.FailType(u"a list", rest);
    return arguments.lisp.List(results);
}

constexpr Builtin table[] = {
    {u"CONS", 2, 2, [](const Arguments& a) { return a.lisp.Cons(a[0], a[1]); }},
    {u"LIST", 0, anyNumber, [](const Arguments& a) { return a.lisp.List(a.All()); }},
    {u"APPEND", 0, anyNumber, Append},
    {u"REVERSE", 1, 1, Reverse},
    {u"LENGTH", 1, 1, Length},
    {u"NTH", 2, 2, Nth},
    {u"MEMBER", 2, 2, Member},
    {u"ASSOC", 2, 2, Assoc},
    {u"LAST", 1, 1, Last},
    {u"MAPCAR", 2, anyNumber, Mapcar},
    {u"APPLY", 2, 2, [](const Arguments& a) { return a.lisp.Apply(a[0], a.Items(1)); }},
};

}  // namespace

void DefineLists(Interpreter& interpreter) {
    DefineWalks(interpreter);
    DefineTable(interpreter, table);
}

}  // namespace lisp
