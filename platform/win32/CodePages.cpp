// The two conversions of Win32 on the tables of CodePage.
#include "platform/win32/CodePages.h"

#include <algorithm>
#include <atomic>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/text/CodePage.h"
#include "platform/text/Conversion.h"
#include "platform/win32/LastError.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

std::atomic<UINT> ansiPage = CodePage::kWindows1252;

int Fail(DWORD error) {
    SetLastError(error);
    return 0;
}

std::optional<CodePage> PageOf(UINT number) {
    try {
        return CodePage(static_cast<int>(number == CP_ACP ? ansiPage.load() : number));
    } catch (const std::invalid_argument&) {
        return std::nullopt;
    }
}

bool IsSurrogate(char32_t codePoint) { return codePoint >= 0xD800 && codePoint < 0xE000; }

// What CodePage could not decode becomes U+FFFD.
std::u16string Decode(const CodePage& page, std::string_view narrow, bool& exact) {
    std::u16string wide = page.Decode(narrow);
    std::u16string out;
    out.reserve(wide.size());
    for (size_t i = 0; i < wide.size();) {
        char32_t codePoint = text::NextCodePoint(wide, i);
        exact = exact && !IsSurrogate(codePoint);
        text::AppendWide(IsSurrogate(codePoint) ? kReplacement : codePoint, out);
    }
    return out;
}

std::string Encode(const CodePage& page, std::u16string_view wide, std::string_view defaultChar,
                   bool& usedDefault) {
    bool utf8 = page.Number() == CodePage::kUtf8;
    std::string out;
    for (size_t i = 0; i < wide.size();) {
        char32_t codePoint = text::NextCodePoint(wide, i);
        if (utf8 && IsSurrogate(codePoint)) codePoint = kReplacement;
        if (!IsSurrogate(codePoint) && page.Encode(codePoint, out)) continue;
        out += defaultChar;
        usedDefault = true;
    }
    return out;
}

template <class Unit>
int Deliver(const std::basic_string<Unit>& converted, Unit* target, int room) {
    int length = static_cast<int>(converted.size());
    if (room == 0) return length;
    std::copy_n(converted.begin(), std::min(length, room), target);
    return length <= room ? length : Fail(ERROR_INSUFFICIENT_BUFFER);
}

template <class Unit>
std::basic_string_view<Unit> Source(const Unit* text, int length) {
    if (length >= 0) return {text, static_cast<size_t>(length)};
    return {text, std::char_traits<Unit>::length(text) + 1};
}

}  // namespace

void SetAnsiCodePage(UINT number) {
    if (number == CP_UTF8 || CodePage(static_cast<int>(number)).IsDoubleByte()) {
        throw std::invalid_argument("Code page " + std::to_string(number) +
                                    ": characters of several bytes cannot stand in the exchange "
                                    "file; choose a single-byte code page such as 1252");
    }
    ansiPage = number;
}

UINT GetACP() { return ansiPage; }

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* narrow, int narrowLength,
                        char16_t* wide, int wideRoom) {
    std::optional<CodePage> page = PageOf(codePage);
    if (!page || !narrow || narrowLength == 0 || narrowLength < -1 || wideRoom < 0) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    bool exact = true;
    std::u16string converted = Decode(*page, Source(narrow, narrowLength), exact);
    if (!exact && (flags & MB_ERR_INVALID_CHARS)) return Fail(ERROR_NO_UNICODE_TRANSLATION);
    return Deliver(converted, wide, wideRoom);
}

int WideCharToMultiByte(UINT codePage, DWORD /*flags*/, const char16_t* wide, int wideLength,
                        char* narrow, int narrowRoom, const char* defaultChar, BOOL* usedDefault) {
    std::optional<CodePage> page = PageOf(codePage);
    bool utf8 = page && page->Number() == CodePage::kUtf8;
    if (!page || !wide || wideLength == 0 || wideLength < -1 || narrowRoom < 0 ||
        (utf8 && (defaultChar || usedDefault))) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    bool replaced = false;
    std::string converted =
        Encode(*page, Source(wide, wideLength), defaultChar ? defaultChar : "?", replaced);
    if (usedDefault) *usedDefault = replaced;
    return Deliver(converted, narrow, narrowRoom);
}
