// UTF-16 and UTF-8 with unpaired surrogates kept; letters by Qt's Unicode tables.
#include "platform/text/Conversion.h"

#include <QChar>
#include <algorithm>

namespace text {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsAscii(char32_t codePoint) { return codePoint < 0x80; }

// The number of bytes that a first byte announces, 0 for a byte that begins nothing.
int SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first < 0xC2) return 0;
    if (first < 0xE0) return 2;
    if (first < 0xF0) return 3;
    return first < 0xF5 ? 4 : 0;
}

template <class Map>
std::u16string MapCodePoints(std::u16string_view wide, Map map) {
    std::u16string out;
    out.reserve(wide.size());
    for (size_t i = 0; i < wide.size();) AppendWide(map(NextCodePoint(wide, i)), out);
    return out;
}

char32_t Upper(char32_t codePoint) {
    if (!IsAscii(codePoint)) return QChar::toUpper(codePoint);
    return codePoint >= 'a' && codePoint <= 'z' ? codePoint - 32 : codePoint;
}

char32_t Folded(char32_t codePoint) {
    if (!IsAscii(codePoint)) return QChar::toCaseFolded(codePoint);
    return codePoint >= 'A' && codePoint <= 'Z' ? codePoint + 32 : codePoint;
}

}  // namespace

void AppendNarrow(char32_t codePoint, std::string& out) {
    auto tail = [&](int shift) { out += static_cast<char>(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) {
        out += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        out += static_cast<char>(0xC0 | codePoint >> 6);
        tail(0);
    } else if (codePoint < 0x10000) {
        out += static_cast<char>(0xE0 | codePoint >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | codePoint >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

void AppendWide(char32_t codePoint, std::u16string& out) {
    if (codePoint < 0x10000) {
        out += static_cast<char16_t>(codePoint);
        return;
    }
    out += QChar::highSurrogate(codePoint);
    out += QChar::lowSurrogate(codePoint);
}

char32_t NextCodePoint(std::u16string_view wide, size_t& index) {
    char16_t unit = wide[index++];
    if (!QChar::isHighSurrogate(unit) || index == wide.size()) return unit;
    if (!QChar::isLowSurrogate(wide[index])) return unit;
    return QChar::surrogateToUcs4(unit, wide[index++]);
}

// Overlong and cut sequences count as single bytes.
std::optional<char32_t> NextNarrow(std::string_view narrow, size_t& index) {
    static constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    size_t start = index++;
    unsigned char first = narrow[start];
    size_t length = SequenceLength(first);
    if (length == 1) return first;
    if (length == 0 || start + length > narrow.size()) return std::nullopt;
    char32_t codePoint = first & (0x7F >> length);
    for (size_t i = start + 1; i < start + length; ++i) {
        unsigned char byte = narrow[i];
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        codePoint = codePoint << 6 | (byte & 0x3F);
    }
    if (codePoint < kLeast[length] || codePoint > 0x10FFFF) return std::nullopt;
    index = start + length;
    return codePoint;
}

std::string NarrowFromWide(std::u16string_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (size_t i = 0; i < wide.size();) AppendNarrow(NextCodePoint(wide, i), out);
    return out;
}

std::u16string WideFromNarrow(std::string_view narrow) {
    std::u16string out;
    out.reserve(narrow.size());
    for (size_t i = 0; i < narrow.size();) {
        const auto byte = static_cast<unsigned char>(narrow[i]);
        if (byte < 0x80) {
            out += static_cast<char16_t>(byte);
            ++i;
        } else {
            AppendWide(NextNarrow(narrow, i).value_or(kReplacement), out);
        }
    }
    return out;
}

std::u16string ToUpper(std::u16string_view wide) { return MapCodePoints(wide, Upper); }

std::u16string FoldCase(std::u16string_view wide) { return MapCodePoints(wide, Folded); }

int CompareNoCase(std::u16string_view a, std::u16string_view b) {
    // Units in common compare equal whatever their case; a pair must not be taken apart.
    size_t i = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    if (i > 0 && QChar::isHighSurrogate(a[i - 1])) --i;
    size_t j = i;
    while (i < a.size() && j < b.size()) {
        char32_t left = Folded(NextCodePoint(a, i));
        char32_t right = Folded(NextCodePoint(b, j));
        if (left != right) return left < right ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

bool IsSpace(char16_t unit) { return QChar::isSpace(unit); }

std::u16string_view TrimLeft(std::u16string_view wide) {
    return wide.substr(std::find_if_not(wide.begin(), wide.end(), IsSpace) - wide.begin());
}

std::u16string_view TrimRight(std::u16string_view wide) {
    auto end = std::find_if_not(wide.rbegin(), wide.rend(), IsSpace).base();
    return wide.substr(0, end - wide.begin());
}

}  // namespace text
