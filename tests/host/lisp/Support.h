// Evaluating sources in an interpreter of their own and looking at what comes out.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "host/lisp/Interpreter.h"

namespace lisp::test {

inline std::string Narrow(std::u16string_view text) { return Error(text).what(); }

// The printed value, or "error: " and the message.
inline std::string Result(Interpreter& interpreter, std::u16string_view source) {
    try {
        return Narrow(interpreter.Print(interpreter.Evaluate(source)));
    } catch (const Error& error) {
        return std::string("error: ") + error.what();
    }
}

inline std::string Result(std::u16string_view source) {
    Interpreter interpreter;
    return Result(interpreter, source);
}

struct Case {
    const char16_t* source;
    const char* result;
};

template <std::size_t count>
void ExpectResults(const Case (&cases)[count]) {
    for (const Case& c : cases) EXPECT_EQ(Result(c.source), c.result) << Narrow(c.source);
}

}  // namespace lisp::test
