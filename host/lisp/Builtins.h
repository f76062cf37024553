// The functions that every interpreter knows, in tables, one per subject.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/lisp/Interpreter.h"

namespace lisp {

// The arguments of one call, read by the type that the function needs; Error on another type.
class Arguments {
  public:
    Arguments(Interpreter& lisp, std::u16string_view function, std::span<const Value> values)
        : lisp(lisp), function_(function), values_(values) {}

    std::size_t size() const { return values_.size(); }
    const Value& operator[](std::size_t i) const { return values_[i]; }
    std::span<const Value> All() const { return values_; }

    std::int32_t Integer(std::size_t i) const;
    double Number(std::size_t i) const;  // of an integer or a real
    const std::u16string& Text(std::size_t i) const;
    Values Items(std::size_t i) const;  // of a list without a dot; nil has none
    std::int32_t IntegerOr(std::size_t i, std::int32_t absent) const;

    [[noreturn]] void FailType(std::u16string_view expected, const Value& found) const;
    [[noreturn]] void Fail(std::u16string_view what) const;

    Interpreter& lisp;

  private:
    std::u16string_view function_;
    std::span<const Value> values_;
};

// Equal in structure; numbers also when they differ by no more than the tolerance.
bool AreEqual(const Interpreter& lisp, const Value& a, const Value& b, double tolerance = 0);

struct Builtin {
    std::u16string_view name;
    std::size_t least, most;  // number of arguments
    Value (*function)(const Arguments&);
};

void DefineTable(Interpreter& interpreter, std::span<const Builtin> table);

void DefineBuiltins(Interpreter& interpreter);  // all of the following
void DefineForms(Interpreter& interpreter);
void DefineArithmetic(Interpreter& interpreter);
void DefineComparison(Interpreter& interpreter);
void DefineStrings(Interpreter& interpreter);
void DefineLists(Interpreter& interpreter);
void DefineSystem(Interpreter& interpreter);

}  // namespace lisp
