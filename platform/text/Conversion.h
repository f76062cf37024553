// Wide text to narrow text and back, and the rules of letters that are the same in every locale.
//
// Wide text is UTF-16 in char16_t, narrow text is UTF-8. No conversion between the string classes
// of this system (CString, OdString, CMxString, QString, TQString) loses anything: an unpaired
// surrogate is carried as it is, and in narrow text as the three bytes that UTF-8 has for its
// number. Such text occurs: a byte that a drawing's code page cannot decode is kept as U+DC80 to
// U+DCFF.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace text {

std::string NarrowFromWide(std::u16string_view wide);

// A byte that belongs to no UTF-8 sequence becomes U+FFFD.
std::u16string WideFromNarrow(std::string_view narrow);

// Appends the UTF-8 form of a code point; surrogates are allowed.
void AppendNarrow(char32_t codePoint, std::string& out);

// Appends one or two units; surrogates are allowed.
void AppendWide(char32_t codePoint, std::u16string& out);

// The code point at index, which moves behind it; an unpaired surrogate stands for itself.
char32_t NextCodePoint(std::u16string_view wide, size_t& index);

// The same in UTF-8. Nothing, and one byte further, for a byte that belongs to no sequence.
std::optional<char32_t> NextNarrow(std::string_view narrow, size_t& index);

// Unicode's simple mappings: one code point for one, whatever the locale of the process.
std::u16string ToUpper(std::u16string_view wide);
std::u16string FoldCase(std::u16string_view wide);

// Below, at or above 0 by code points of the folded texts.
int CompareNoCase(std::u16string_view a, std::u16string_view b);

bool IsSpace(char16_t unit);
std::u16string_view TrimLeft(std::u16string_view wide);
std::u16string_view TrimRight(std::u16string_view wide);

}  // namespace text
