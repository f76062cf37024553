// The text of an error, brought from the program's 16-bit characters to UTF-8.
#include "host/lisp/Error.h"

#include <string>

namespace lisp {
namespace {

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(lead[following] | (c >> (6 * following)));
    for (int i = following - 1; i >= 0; --i)
        out += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        const bool high = c >= 0xD800 && c < 0xDC00;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000)
            AppendUtf8(out, 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00));
        else
            AppendUtf8(out, c >= 0xD800 && c < 0xE000 ? 0xFFFD : c);
    }
    return out;
}

}  // namespace

Error::Error(std::u16string_view line) : std::runtime_error(ToUtf8(line)) {}

}  // namespace lisp
