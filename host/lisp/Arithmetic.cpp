// Numbers: integers of 32 bits that wrap, and reals.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "host/lisp/Builtins.h"

namespace lisp {
namespace {

Value Wrapped(std::int64_t number) {
    return Value::Integer(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
}

Value Truncated(double number) {
    const double whole = std::trunc(number);
    if (whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())
        return Value::Integer(static_cast<std::int32_t>(whole));
    return Value::Real(whole);  // too large for an integer
}

struct Add {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return a + b; }
    static double Of(double a, double b) { return a + b; }
};

struct Subtract {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return a - b; }
    static double Of(double a, double b) { return a - b; }
};

struct Multiply {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return a * b; }
    static double Of(double a, double b) { return a * b; }
};

struct Divide {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return a / b; }
    static double Of(double a, double b) { return a / b; }
};

struct Remainder {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return a % b; }
    static double Of(double a, double b) { return std::fmod(a, b); }
};

struct Least {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return std::min(a, b); }
    static double Of(double a, double b) { return std::min(a, b); }
};

struct Greatest {
    static std::int64_t Of(std::int64_t a, std::int64_t b) { return std::max(a, b); }
    static double Of(double a, double b) { return std::max(a, b); }
};

// From left to right; integers until the first real comes. Without arguments 0.
template <class Operation, bool division = false>
Value Fold(const Arguments& arguments) {
    if (arguments.size() == 0) return Value::Integer(0);
    arguments.Number(0);
    Value result = arguments[0];
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const double number = arguments.Number(i);
        if (division && number == 0) arguments.Fail(u"division by zero");
        if (result.Is(Kind::Integer) && arguments[i].Is(Kind::Integer))
            result = Wrapped(Operation::Of(std::int64_t{result.AsInteger()},
                                           std::int64_t{arguments[i].AsInteger()}));
        else
            result = Value::Real(Operation::Of(result.AsReal(), number));
    }
    return result;
}

template <class Operation>
Value WithOne(const Arguments& arguments) {
    const Value values[] = {arguments[0], Value::Integer(1)};
    arguments.Number(0);
    return Fold<Operation>(Arguments(arguments.lisp, u"1", values));
}

Value Minus(const Arguments& arguments) {
    if (arguments.size() != 1) return Fold<Subtract>(arguments);
    if (arguments[0].Is(Kind::Integer)) return Wrapped(-std::int64_t{arguments.Integer(0)});
    return Value::Real(-arguments.Number(0));
}

Value Abs(const Arguments& arguments) {
    return arguments.Number(0) < 0 ? Minus(arguments) : arguments[0];
}

Value Sqrt(const Arguments& arguments) {
    if (arguments.Number(0) < 0) arguments.Fail(u"the number is negative");
    return Value::Real(std::sqrt(arguments.Number(0)));
}

constexpr Builtin table[] = {
    {u"+", 0, anyNumber, Fold<Add>},
    {u"-", 0, anyNumber, Minus},
    {u"*", 0, anyNumber, Fold<Multiply>},
    {u"/", 0, anyNumber, Fold<Divide, true>},
    {u"REM", 0, anyNumber, Fold<Remainder, true>},
    {u"MIN", 0, anyNumber, Fold<Least>},
    {u"MAX", 0, anyNumber, Fold<Greatest>},
    {u"1+", 1, 1, WithOne<Add>},
    {u"1-", 1, 1, WithOne<Subtract>},
    {u"ABS", 1, 1, Abs},
    {u"SQRT", 1, 1, Sqrt},
    {u"FIX", 1, 1, [](const Arguments& a) { return Truncated(a.Number(0)); }},
    {u"FLOAT", 1, 1, [](const Arguments& a) { return Value::Real(a.Number(0)); }},
};

}  // namespace

void DefineArithmetic(Interpreter& interpreter) {
    DefineTable(interpreter, table);
    interpreter.Set(u"PI", Value::Real(std::numbers::pi));
}

}  // namespace lisp
