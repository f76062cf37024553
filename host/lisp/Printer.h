// How values are written.
#pragma once
#include <cstddef>
#include <string>

#include "host/lisp/Value.h"

namespace lisp {

enum class Quoting { Plain, Readable };  // Readable: strings in quotes, with escapes

// Appends the text of the value; false when it was cut since `out` passed `limit` characters.
bool AppendPrinted(std::u16string& out, const Value& value, Quoting quoting, std::size_t limit);

// The readable text for a message, cut behind some eighty characters.
std::u16string Excerpt(const Value& value);

// A real with at most six significant digits and always with a point or an exponent.
std::u16string RealText(double number);

std::u16string Widen(std::string_view ascii);

}  // namespace lisp
