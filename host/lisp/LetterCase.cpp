// Upper and lower case of the letters that names and texts of CAD programs use.
#include "host/lisp/LetterCase.h"

#include <algorithm>

namespace lisp {
namespace {

// Upper-case letters first to last, every step-th of them, and how far off the small letter is.
struct Range {
    char16_t first, last;
    int step, distance;
};

constexpr Range ranges[] = {
    {u'A', u'Z', 1, 32},     {0x00C0, 0x00D6, 1, 32},   {0x00D8, 0x00DE, 1, 32},
    {0x0100, 0x012E, 2, 1},  {0x0132, 0x0136, 2, 1},    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},  {0x0178, 0x0178, 1, -121}, {0x0179, 0x017D, 2, 1},
    {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37},   {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63}, {0x0391, 0x03A1, 1, 32},   {0x03A3, 0x03AB, 1, 32},
    {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32},   {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},  {0x04D0, 0x052E, 2, 1},
};

char16_t Shift(char16_t c, bool fromLower) {
    for (const Range& range : ranges) {
        const int offset = fromLower ? range.distance : 0;
        const int place = c - offset - range.first;
        if (place >= 0 && place <= range.last - range.first && place % range.step == 0)
            return static_cast<char16_t>(c + (fromLower ? -range.distance : range.distance));
    }
    return c;
}

}  // namespace

char16_t ToUpper(char16_t c) { return Shift(c, true); }
char16_t ToLower(char16_t c) { return Shift(c, false); }

std::u16string UpperCase(std::u16string_view text) {
    std::u16string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), ToUpper);
    return upper;
}

std::u16string LowerCase(std::u16string_view text) {
    std::u16string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), ToLower);
    return lower;
}

}  // namespace lisp
