// Order, equality and the questions about the kind of a value.
#include <cmath>
#include <compare>
#include <utility>
#include <vector>

#include "host/lisp/Builtins.h"

namespace lisp {
namespace {

bool BothStrings(const Value& a, const Value& b) {
    return a.Is(Kind::String) && b.Is(Kind::String);
}

bool Equals(const Value& a, const Value& b) {
    if (BothStrings(a, b)) return a.AsString() == b.AsString();
    if (a.IsNumber() && b.IsNumber()) return a.AsReal() == b.AsReal();
    return a.Same(b);
}

std::partial_ordering Order(const Arguments& arguments, std::size_t i) {
    if (BothStrings(arguments[i], arguments[i + 1]))
        return arguments[i].AsString().compare(arguments[i + 1].AsString()) <=> 0;
    return arguments.Number(i) <=> arguments.Number(i + 1);
}

template <class Holds>
Value EachPair(const Arguments& arguments, Holds holds) {
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i)
        if (!holds(arguments, i)) return {};
    return arguments.lisp.True();
}

bool EqualLeaves(const Value& a, const Value& b, double tolerance) {
    if (a.IsNumber() && b.IsNumber() && tolerance > 0)
        return std::abs(a.AsReal() - b.AsReal()) <= tolerance;
    return Equals(a, b);
}

Value IsNull(const Arguments& a) { return a.lisp.Bool(a[0].IsNil()); }

constexpr Builtin table[] = {
    {u"=", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return Equals(a[i], a[i + 1]); });
     }},
    {u"/=", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return !Equals(a[i], a[i + 1]); });
     }},
    {u"<", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return Order(a, i) < 0; });
     }},
    {u"<=", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return Order(a, i) <= 0; });
     }},
    {u">", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return Order(a, i) > 0; });
     }},
    {u">=", 1, anyNumber,
     [](const Arguments& a) {
         return EachPair(a, [](auto& a, std::size_t i) { return Order(a, i) >= 0; });
     }},
    {u"EQ", 2, 2, [](const Arguments& a) { return a.lisp.Bool(a[0].Same(a[1])); }},
    {u"EQUAL", 2, 3,
     [](const Arguments& a) {
         return a.lisp.Bool(AreEqual(a.lisp, a[0], a[1], a.size() > 2 ? a.Number(2) : 0));
     }},
    {u"NULL", 1, 1, IsNull},
    {u"NOT", 1, 1, IsNull},
    {u"ATOM", 1, 1, [](const Arguments& a) { return a.lisp.Bool(!a[0].Is(Kind::List)); }},
    {u"LISTP", 1, 1,
     [](const Arguments& a) { return a.lisp.Bool(a[0].IsNil() || a[0].Is(Kind::List)); }},
    {u"NUMBERP", 1, 1, [](const Arguments& a) { return a.lisp.Bool(a[0].IsNumber()); }},
    {u"ZEROP", 1, 1, [](const Arguments& a) { return a.lisp.Bool(a.Number(0) == 0); }},
    {u"MINUSP", 1, 1, [](const Arguments& a) { return a.lisp.Bool(a.Number(0) < 0); }},
};

}  // namespace

// Without recursion; interruptible, since shared parts can make the comparison very long.
bool AreEqual(const Interpreter& lisp, const Value& first, const Value& second, double tolerance) {
    std::vector<std::pair<const Value*, const Value*>> open = {{&first, &second}};
    while (!open.empty()) {
        lisp.CheckInterrupt();
        const auto [a, b] = open.back();
        open.pop_back();
        if (a->Is(Kind::List) && b->Is(Kind::List)) {
            if (a->Same(*b)) continue;
            open.emplace_back(&a->Tail(), &b->Tail());
            open.emplace_back(&a->Head(), &b->Head());
        } else if (!EqualLeaves(*a, *b, tolerance)) {
            return false;
        }
    }
    return true;
}

void DefineComparison(Interpreter& interpreter) { DefineTable(interpreter, table); }

}  // namespace lisp
