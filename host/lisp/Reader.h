// From source text to values.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/lisp/Interpreter.h"

namespace lisp {

// Gives the expressions of a source one after the other. Malformed input is an Error that names
// the line.
class Reader {
  public:
    Reader(Interpreter& interpreter, std::u16string_view source);
    std::optional<Value> Next();

  private:
    // A list whose closing parenthesis, or a quote whose expression, has not been read yet.
    struct Open {
        Values items;
        std::size_t line;
        bool quote;
        int behindDot = -1;  // expressions read since the dot; -1 before one
    };

    bool SkipBlank();  // also comments; false at the end
    void Begin(bool quote);
    void Dot();
    Value Close();
    Value ReadAtom(std::u16string_view token);
    Value ReadString();
    char16_t ReadEscape();
    std::u16string_view ReadToken();
    std::optional<Value> Add(Value value);  // the expression, once nothing is open around it
    [[noreturn]] void Fail(std::u16string_view what, std::size_t line) const;

    Interpreter& interpreter_;
    std::u16string_view source_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::vector<Open, CountingAllocator<Open>> open_;
};

// The number that the whole token is, if it is one.
std::optional<Value> ParseNumber(std::u16string_view token);

}  // namespace lisp
