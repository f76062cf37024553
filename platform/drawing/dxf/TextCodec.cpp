// The text of a drawing file: code page, \U+ and \M+ escapes, caret escapes.
#include "platform/drawing/dxf/TextCodec.h"

#include <algorithm>
#include <array>
#include <optional>
#include <type_traits>

namespace dxf {

namespace {

constexpr bool IsLead(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool IsTrail(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

template <class Char>
int HexDigit(Char c) {
    if (c >= '0' && c <= '9') return int(c - '0');
    if (c >= 'A' && c <= 'F') return int(c - 'A' + 10);
    if (c >= 'a' && c <= 'f') return int(c - 'a' + 10);
    return -1;
}

// Four hexadecimal digits at the beginning of the text; -1 for anything else.
int HexUnit(std::u16string_view text) {
    if (text.size() < 4) return -1;
    int unit = 0;
    for (size_t i = 0; i < 4; ++i) {
        const int digit = HexDigit(text[i]);
        if (digit < 0) return -1;
        unit = unit * 16 + digit;
    }
    return unit;
}

constexpr size_t kUnicodeLength = 7;    // \U+XXXX
constexpr size_t kMultibyteLength = 8;  // \M+nXXXX

bool StartsUnicode(std::u16string_view text) {
    return text.starts_with(u"\\U+") && HexUnit(text.substr(3)) >= 0;
}

bool StartsMultibyte(std::u16string_view text) {
    return text.starts_with(u"\\M+") && text.size() >= kMultibyteLength && text[3] >= u'1' &&
           text[3] <= u'5' && HexUnit(text.substr(4)) >= 0;
}

constexpr std::array kMultibytePages = {932, 950, 949, 1361, 936};  // of \M+1 to \M+5

// The text of a \M+nXXXX; nothing when the page has no such character.
std::optional<std::u16string> DecodeMultibyte(std::u16string_view escape) {
    const int unit = HexUnit(escape.substr(4));
    const char bytes[2] = {char(unit >> 8), char(unit & 0xFF)};
    const std::string_view whole(bytes, 2);
    const CodePage page(kMultibytePages[size_t(escape[3] - u'1')]);
    const std::u16string text = page.Decode(unit < 0x100 ? whole.substr(1) : whole);
    const bool lost = std::any_of(text.begin(), text.end(), IsTrail);
    if (lost || text.empty()) return std::nullopt;
    return text;
}

// Takes one escape from the front of the text, or one unit that is none, and writes what it stands
// for, which is never longer; gives the place behind it.
char16_t* DecodeNext(std::u16string_view& text, char16_t* out) {
    size_t used = 1;
    char16_t unit = text.front();
    if (unit == u'\\' && StartsUnicode(text)) {
        unit = char16_t(HexUnit(text.substr(3)));
        used = kUnicodeLength;
    } else if (unit == u'\\' && StartsMultibyte(text)) {
        if (const auto decoded = DecodeMultibyte(text)) {
            text.remove_prefix(kMultibyteLength);
            return std::copy(decoded->begin(), decoded->end(), out);
        }
    } else if (unit == u'^' && text.size() > 1) {
        const char16_t letter = text[1];
        if (letter == u' ') {
            used = 2;
        } else if (letter >= u'@' && letter <= u'_') {
            unit = letter - u'@';
            used = 2;
        }
    }
    text.remove_prefix(used);
    *out = unit;
    return out + 1;
}

void AppendUnicode(char16_t unit, std::string& out) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[(unit >> shift) & 15];
}

constexpr bool IsPlain(char16_t c) { return c >= 0x20 && c < 0x7F && c != u'\\' && c != u'^'; }

bool IsPlainByte(char c) { return IsPlain(static_cast<unsigned char>(c)); }

bool IsEscape(char16_t c) { return c == u'\\' || c == u'^'; }

// Without a branch for each character, so that the processor looks at many at a time.
template <class Text>
bool IsAllPlain(Text text) {
    using Unit = std::make_unsigned_t<typename Text::value_type>;
    Unit other = 0;
    for (const auto c : text) {
        const Unit unit(c);
        other |= Unit(Unit(unit - 0x20) >= 0x7F - 0x20) | Unit(unit == '\\') | Unit(unit == '^');
    }
    return other == 0;
}

size_t PlainLength(std::u16string_view text) {
    return size_t(std::find_if_not(text.begin(), text.end(), IsPlain) - text.begin());
}

void AppendPlain(std::u16string_view plain, std::string& raw) {
    const size_t before = raw.size();
    raw.resize(before + plain.size());
    for (size_t i = 0; i < plain.size(); ++i) raw[before + i] = char(plain[i]);
}

std::string Narrowed(std::u16string_view plain) {
    std::string raw;
    AppendPlain(plain, raw);
    return raw;
}

// Plain characters are the same in every page.
std::u16string Widened(std::string_view plain) {
    std::u16string text(plain.size(), u'\0');
    for (size_t i = 0; i < plain.size(); ++i) text[i] = static_cast<unsigned char>(plain[i]);
    return text;
}

// The units of the text's first character: a pair of surrogates or one unit.
std::u16string_view FirstCharacter(std::u16string_view text) {
    const bool pair = text.size() > 1 && IsLead(text[0]) && IsTrail(text[1]);
    return text.substr(0, pair ? 2 : 1);
}

char32_t CodePointOf(std::u16string_view character) {
    if (character.size() == 1) return character[0];
    return 0x10000 + ((char32_t(character[0]) - 0xD800) << 10) + (char32_t(character[1]) - 0xDC00);
}

bool IsUndecodable(char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; }

}  // namespace

TextCodec::TextCodec(Version version, std::string_view codePageName)
    : page(version >= Version::R2007
               ? CodePage(CodePage::kUtf8)
               : CodePage::FromDrawingName(codePageName.empty() ? "ANSI_1252" : codePageName)),
      utf8(version >= Version::R2007) {}

bool TextCodec::Utf8() const { return utf8; }

std::u16string TextCodec::Decode(std::string_view raw) const {
    if (IsAllPlain(raw)) return Widened(raw);
    // The page comes first: in double-byte pages the second byte of a character can be that of a
    // backslash or a caret.
    std::u16string text = page.Decode(raw);
    const auto escape = std::find_if(text.begin(), text.end(), IsEscape);
    const size_t before = size_t(escape - text.begin());
    char16_t* out = text.data() + before;
    for (std::u16string_view rest(out, text.size() - before); !rest.empty();) {
        out = DecodeNext(rest, out);
    }
    text.resize(size_t(out - text.data()));
    return text;
}

bool TextCodec::Reads(std::string_view raw, std::u16string_view text) const {
    const auto bears = [](char byte, char16_t unit) {
        return IsPlainByte(byte) && static_cast<unsigned char>(byte) == unit;
    };
    const auto [byte, unit] =
        std::mismatch(raw.begin(), raw.end(), text.begin(), text.end(), bears);
    if (byte == raw.end()) return unit == text.end();
    if (IsPlainByte(*byte)) return false;
    return Decode({byte, raw.end()}) == std::u16string_view(unit, text.end());
}

std::string TextCodec::Encode(std::u16string_view text) const {
    if (IsAllPlain(text)) return Narrowed(text);
    const bool loose = std::any_of(text.begin(), text.end(), IsUndecodable);
    std::string raw = EncodeAll(text, true);
    // A byte that stands for itself may make a character with what comes behind it now; escaped it
    // cannot.
    if (loose && Decode(raw) != text) raw = EncodeAll(text, false);
    return raw;
}

// looseBytes: undecodable bytes are written as they were read, else as escapes.
std::string TextCodec::EncodeAll(std::u16string_view text, bool looseBytes) const {
    std::string raw;
    raw.reserve(text.size());
    for (;;) {
        const size_t plain = PlainLength(text);
        AppendPlain(text.substr(0, plain), raw);
        text.remove_prefix(plain);
        if (text.empty()) return raw;
        const std::u16string_view character = FirstCharacter(text);
        if (text[0] == u'\\' && (StartsUnicode(text) || StartsMultibyte(text)))
            AppendUnicode(u'\\', raw);  // spelled out by the user: no escape must come of it
        else
            EncodeCharacter(character, looseBytes, raw);
        text.remove_prefix(character.size());
    }
}

void TextCodec::EncodeCharacter(std::u16string_view character, bool looseBytes,
                                std::string& raw) const {
    const char16_t unit = character[0];
    if (unit < 0x20) {
        raw += '^';
        raw += char(unit + '@');
    } else if (unit == u'^') {
        raw += "^ ";
    } else if (unit < 0x80) {
        raw += char(unit);
    } else if ((IsUndecodable(unit) && !looseBytes) || !page.Encode(CodePointOf(character), raw)) {
        for (const char16_t half : character) AppendUnicode(half, raw);
    }
}

}  // namespace dxf
