// CString: formatting, letters, searching.
#include "platform/text/CString.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "platform/text/Conversion.h"

namespace {

// One conversion of a format: "%-5ld" has flags "-5" and type 'd'.
struct Conversion {
    std::string flags;
    char type = 0;
};

// Reads what stands behind a '%'; at moves behind it.
Conversion ReadConversion(const char16_t*& at) {
    auto takeAny = [&at](std::u16string_view set) {
        std::string taken;
        while (*at && set.find(*at) != set.npos) taken += static_cast<char>(*at++);
        return taken;
    };
    Conversion conversion;
    conversion.flags = takeAny(u"-+ #0123456789.");
    takeAny(u"hl");
    if (*at && *at < 0x80) conversion.type = static_cast<char>(*at++);
    return conversion;
}

template <class Number>
std::u16string FormatNumber(const Conversion& conversion, Number number) {
    std::string format = "%" + conversion.flags + "ll" + conversion.type;
    std::string out(std::snprintf(nullptr, 0, format.c_str(), number), '\0');
    std::snprintf(out.data(), out.size() + 1, format.c_str(), number);
    return {out.begin(), out.end()};
}

// Width, "-" and precision of a text, counted in 16-bit units.
std::u16string FormatText(const Conversion& conversion, std::u16string text) {
    std::string flags = conversion.flags;
    if (size_t dot = flags.find('.'); dot != std::string::npos) {
        text.resize(std::min<size_t>(text.size(), std::atoi(flags.c_str() + dot + 1)));
        flags.resize(dot);
    }
    size_t digits = std::min(flags.find_first_of("123456789"), flags.size());
    size_t width = std::atoi(flags.c_str() + digits);
    if (text.size() >= width) return text;
    bool left = flags.find('-') != std::string::npos;
    text.insert(left ? text.size() : 0, width - text.size(), u' ');
    return text;
}

// An argument by its conversion; nothing when they do not fit.
template <class Argument>
std::optional<std::u16string> FormatOne(const Conversion& conversion, const Argument& argument) {
    char type = conversion.type;
    if (type == 's' && !argument.isNumber) return FormatText(conversion, argument.text);
    if (!argument.isNumber) return std::nullopt;
    if (type == 'd' || type == 'i') return FormatNumber(conversion, argument.number);
    if (type == 'u' || type == 'x' || type == 'X') return FormatNumber(conversion, argument.bits);
    if (type != 'c') return std::nullopt;
    return FormatText(conversion, {static_cast<char16_t>(argument.number)});
}

}  // namespace

CString::CString(const char* narrow) : wide(text::WideFromNarrow(narrow ? narrow : "")) {}

void CString::FormatWith(const char16_t* format, std::initializer_list<Argument> arguments) {
    std::u16string out;
    auto argument = arguments.begin();
    for (const char16_t* at = format; *at;) {
        if (*at != u'%') {
            out += *at++;
            continue;
        }
        Conversion conversion = ReadConversion(++at);
        std::optional<std::u16string> formatted;
        if (conversion.type == '%') {
            formatted = u"%";
        } else if (argument != arguments.end()) {
            formatted = FormatOne(conversion, *argument++);
        }
        if (!formatted) {
            throw std::invalid_argument("CString::Format: \"" + text::NarrowFromWide(format) +
                                        "\" does not fit its arguments; known are d, i, u, x, X "
                                        "and c with a number, s with a text");
        }
        out += *formatted;
    }
    wide = std::move(out);
}

CString& CString::MakeUpper() {
    wide = text::ToUpper(wide);
    return *this;
}

CString& CString::Trim() { return TrimLeft().TrimRight(); }

CString& CString::TrimLeft() {
    wide = std::u16string(text::TrimLeft(wide));
    return *this;
}

CString& CString::TrimRight() {
    wide.resize(text::TrimRight(wide).size());
    return *this;
}

int CString::Replace(const CString& search, const CString& replacement) {
    if (search.IsEmpty()) return 0;
    std::u16string out;
    int count = 0;
    size_t from = 0;
    for (size_t at = 0; (at = wide.find(search.wide, from)) != std::u16string::npos; ++count) {
        out.append(wide, from, at - from).append(replacement.wide);
        from = at + search.wide.size();
    }
    if (count) wide = out.append(wide, from);
    return count;
}

int CString::Find(const CString& search, int start) const {
    return static_cast<int>(wide.find(search.wide, std::max(start, 0)));
}

int CString::Find(char16_t unit, int start) const {
    return static_cast<int>(wide.find(unit, std::max(start, 0)));
}

int CString::CompareNoCase(const CString& other) const {
    return text::CompareNoCase(wide, other.wide);
}

CString CString::Mid(int first, int count) const {
    first = std::clamp(first, 0, GetLength());
    return wide.substr(first, std::max(count, 0));
}

CString CString::Right(int count) const { return Mid(GetLength() - std::max(count, 0)); }

CString CString::Tokenize(const char16_t* delimiters, int& start) const {
    size_t begin = wide.find_first_not_of(delimiters, std::max(start, 0));
    if (start < 0 || begin == std::u16string::npos) {
        start = -1;
        return {};
    }
    size_t end = std::min(wide.find_first_of(delimiters, begin), wide.size());
    start = static_cast<int>(end);
    return wide.substr(begin, end - begin);
}

CString& CString::operator+=(const CString& other) {
    wide += other.wide;
    return *this;
}

CString& CString::operator+=(char16_t unit) {
    wide += unit;
    return *this;
}
