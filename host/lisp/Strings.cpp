// Strings, and the roads between strings and numbers.
#include <algorithm>
#include <charconv>
#include <limits>

#include "host/lisp/Builtins.h"
#include "host/lisp/LetterCase.h"
#include "host/lisp/Printer.h"

namespace lisp {
namespace {

Value Strcat(const Arguments& arguments) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i) length += arguments.Text(i).size();
    arguments.lisp.heap().CheckRoom(2 * sizeof(char16_t) * length);  // this text and the value's
    std::u16string text;
    text.reserve(length);
    for (std::size_t i = 0; i < arguments.size(); ++i) text += arguments.Text(i);
    return arguments.lisp.String(text);
}

Value Strlen(const Arguments& arguments) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i) length += arguments.Text(i).size();
    return Value::Integer(static_cast<std::int32_t>(length));
}

// Positions count from 1.
Value Substr(const Arguments& arguments) {
    const std::u16string_view text = arguments.Text(0);
    const std::int32_t start = arguments.Integer(1);
    const std::int32_t length = arguments.IntegerOr(2, std::numeric_limits<std::int32_t>::max());
    if (start < 1) arguments.Fail(u"the start must be 1 or more");
    if (length < 0) arguments.Fail(u"the length must not be negative");
    const std::size_t from = std::min<std::size_t>(start - 1, text.size());
    return arguments.lisp.String(text.substr(from, length));
}

Value Strcase(const Arguments& arguments) {
    const bool lower = arguments.size() > 1 && !arguments[1].IsNil();
    const std::u16string& text = arguments.Text(0);
    return arguments.lisp.String(lower ? LowerCase(text) : UpperCase(text));
}

// The characters of a number that the text begins with, perhaps none.
std::string LeadingNumber(const std::u16string& text, std::u16string_view allowed) {
    std::string number;
    std::size_t i = std::min(text.find_first_not_of(u" \t\r\n"), text.size());
    if (i < text.size() && text[i] == u'+') ++i;
    for (; i < text.size() && allowed.find(text[i]) != allowed.npos; ++i)
        number += static_cast<char>(text[i]);
    return number;
}

// 0 for a text that begins with no number; held at the bounds of an integer.
Value Atoi(const Arguments& arguments) {
    const std::string digits = LeadingNumber(arguments.Text(0), u"-0123456789");
    std::int32_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    using Limits = std::numeric_limits<std::int32_t>;
    if (result.ec == std::errc::result_out_of_range)
        number = digits[0] == '-' ? Limits::min() : Limits::max();
    return Value::Integer(number);
}

Value Atof(const Arguments& arguments) {
    const std::string digits = LeadingNumber(arguments.Text(0), u"-+.0123456789eE");
    double number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::result_out_of_range) arguments.Fail(u"number out of range");
    return Value::Real(number);
}

// Mode 1 is scientific and 2, when none is given, decimal; four places when none are given.
Value Rtos(const Arguments& arguments) {
    const double number = arguments.Number(0);
    const std::int32_t mode = arguments.IntegerOr(1, 2);
    const std::int32_t places = arguments.IntegerOr(2, 4);
    if (mode != 1 && mode != 2) arguments.Fail(u"the mode must be 1 (scientific) or 2 (decimal)");
    if (places < 0 || places > 16) arguments.Fail(u"the places must be 0 to 16");
    const auto format = mode == 1 ? std::chars_format::scientific : std::chars_format::fixed;
    char digits[400];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, format, places).ptr;
    return arguments.lisp.String(UpperCase(Widen({digits, end})));
}

Value Itoa(const Arguments& arguments) {
    return arguments.lisp.String(Widen(std::to_string(arguments.Integer(0))));
}

Value Ascii(const Arguments& arguments) {
    const std::u16string& text = arguments.Text(0);
    return Value::Integer(text.empty() ? 0 : text[0]);
}

Value Chr(const Arguments& arguments) {
    const std::int32_t code = arguments.Integer(0);
    if (code < 1 || code > 0xFFFF) arguments.Fail(u"the code must be 1 to 65535");
    return arguments.lisp.String(std::u16string(1, static_cast<char16_t>(code)));
}

constexpr Builtin table[] = {
    {u"STRCAT", 0, anyNumber, Strcat},
    {u"STRLEN", 0, anyNumber, Strlen},
    {u"SUBSTR", 2, 3, Substr},
    {u"STRCASE", 1, 2, Strcase},
    {u"ATOI", 1, 1, Atoi},
    {u"ATOF", 1, 1, Atof},
    {u"ITOA", 1, 1, Itoa},
    {u"RTOS", 1, 3, Rtos},
    {u"ASCII", 1, 1, Ascii},
    {u"CHR", 1, 1, Chr},
};

}  // namespace

void DefineStrings(Interpreter& interpreter) { DefineTable(interpreter, table); }

}  // namespace lisp
