// Upper and lower case of the letters that names and texts of CAD programs use.
#pragma once
#include <string>
#include <string_view>

namespace lisp {

// One character for one character, whatever the locale: Latin, Greek and Cyrillic letters.
char16_t ToUpper(char16_t c);
char16_t ToLower(char16_t c);
std::u16string UpperCase(std::u16string_view text);
std::u16string LowerCase(std::u16string_view text);

}  // namespace lisp
