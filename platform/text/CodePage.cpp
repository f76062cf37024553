// Code pages as tables that are built from iconv once and then only looked up.
#include "platform/text/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

#include "platform/text/Conversion.h"

// Both directions of one page. pairs and the bytes above 255 in `bytes` are of double-byte pages.
struct CodePageTable {
    std::array<char16_t, 256> single{};  // undecodable bytes as U+DC00 + byte
    std::array<bool, 256> lead{};
    std::vector<char16_t> pairs;  // by lead byte * 256 + trail byte; 0 = none
    std::vector<uint16_t> bytes;  // by character; 0 = none, from 256 on lead * 256 + trail
};

namespace {

constexpr char16_t kUndecodable = 0xDC00;

char16_t UndecodableByte(unsigned char byte) { return kUndecodable + byte; }

bool IsSurrogate(char32_t codePoint) { return codePoint >= 0xD800 && codePoint < 0xE000; }

bool IsUndecodableByte(char32_t codePoint) {
    return codePoint >= kUndecodable + 0x80 && codePoint <= kUndecodable + 0xFF;
}

std::string IconvName(int number) {
    static const std::map<int, std::string> names = {
        {10000, "MACINTOSH"}, {1361, "JOHAB"}, {20866, "KOI8-R"}};
    if (auto found = names.find(number); found != names.end()) return found->second;
    if (number > 28590 && number < 28606) return "ISO-8859-" + std::to_string(number - 28590);
    return "CP" + std::to_string(number);
}

// One direction between a page and UTF-16.
class Iconv {
  public:
    Iconv(const std::string& to, const std::string& from)
        : handle(iconv_open(to.c_str(), from.c_str())) {}
    ~Iconv() {
        if (IsOpen()) iconv_close(handle);
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    bool IsOpen() const { return handle != reinterpret_cast<iconv_t>(-1); }

    // Converts the whole input; empty when any of it has no counterpart.
    std::string Convert(std::string input) const {
        std::array<char, 16> output{};
        char* from = input.data();
        char* to = output.data();
        size_t fromLeft = input.size();
        size_t toLeft = output.size();
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle, &from, &fromLeft, &to, &toLeft) != 0) return {};
        // Some pages hold a letter back, in case an accent follows.
        if (iconv(handle, nullptr, nullptr, &to, &toLeft) != 0) return {};
        return {output.data(), output.size() - toLeft};
    }

  private:
    iconv_t handle;
};

// The character that bytes stand for, 0 for none and for what is more than one unit.
char16_t DecodeOne(const Iconv& decoder, const std::string& bytes) {
    std::string wide = decoder.Convert(bytes);
    if (wide.size() != 2) return 0;
    return static_cast<char16_t>(static_cast<unsigned char>(wide[0]) |
                                 static_cast<unsigned char>(wide[1]) << 8);
}

std::vector<char16_t> DecodePairs(const Iconv& decoder, CodePageTable& table) {
    std::vector<char16_t> pairs(0x10000);
    for (int lead = 0x80; lead < 0x100; ++lead) {
        if (table.single[lead] != kUndecodable + lead) continue;
        for (int trail = 0x30; trail < 0x100; ++trail) {
            char16_t unit = DecodeOne(decoder, {static_cast<char>(lead), static_cast<char>(trail)});
            pairs[lead << 8 | trail] = unit;
            if (unit) table.lead[lead] = true;
        }
    }
    return pairs;
}

// Several bytes may stand for one character; iconv knows which of them is the usual one.
void FillBytes(const Iconv& encoder, const std::vector<char16_t>& characters,
               std::vector<uint16_t>& bytes) {
    for (char16_t unit : characters) {
        if (unit < 0x80 || IsUndecodableByte(unit) || bytes[unit]) continue;
        std::string encoded =
            encoder.Convert({static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)});
        for (unsigned char byte : encoded) {
            bytes[unit] = static_cast<uint16_t>(bytes[unit] << 8 | byte);
        }
    }
}

[[noreturn]] void Refuse(int number, const char* why) {
    throw std::invalid_argument("Code page " + std::to_string(number) + ": " + why +
                                "; choose another one");
}

// The pages of mainframes have their letters above 127. All text is taken to hold ASCII below.
bool HasAsciiAbove(const std::array<char16_t, 256>& single) {
    return std::any_of(single.begin() + 0x80, single.end(), [](char16_t c) { return c < 0x80; });
}

std::unique_ptr<CodePageTable> BuildTable(int number) {
    Iconv decoder("UTF-16LE", IconvName(number));
    Iconv encoder(IconvName(number), "UTF-16LE");
    if (!decoder.IsOpen() || !encoder.IsOpen()) Refuse(number, "the system has no conversion");
    auto table = std::make_unique<CodePageTable>();
    for (int byte = 0; byte < 0x100; ++byte) {
        char16_t unit = byte < 0x80 ? byte : DecodeOne(decoder, {static_cast<char>(byte)});
        table->single[byte] = byte && !unit ? UndecodableByte(byte) : unit;
    }
    if (HasAsciiAbove(table->single)) Refuse(number, "it has ASCII letters above 127");
    std::vector<char16_t> pairs = DecodePairs(decoder, *table);
    table->bytes.resize(0x10000);
    FillBytes(encoder, {table->single.begin(), table->single.end()}, table->bytes);
    if (std::find(table->lead.begin(), table->lead.end(), true) != table->lead.end()) {
        FillBytes(encoder, pairs, table->bytes);
        table->pairs = std::move(pairs);
    }
    return table;
}

// Tables live as long as the process: code pages are few, and values point at them.
const CodePageTable* TableOf(int number) {
    static std::mutex mutex;
    static std::map<int, std::unique_ptr<CodePageTable>> tables;
    std::lock_guard lock(mutex);
    std::unique_ptr<CodePageTable>& table = tables[number];
    if (!table) table = BuildTable(number);
    return table.get();
}

// Letters and digits of a name in lower case, so that spellings with and without "_" and "-" meet.
std::string NameKey(std::string_view name) {
    std::string key;
    for (char c : name) {
        if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) key += c;
    }
    return key;
}

int NumberOfName(std::string_view name) {
    static const std::map<std::string, int, std::less<>> names = {{"utf8", CodePage::kUtf8},
                                                                  {"ascii", 1252},
                                                                  {"macroman", 10000},
                                                                  {"mac", 10000},
                                                                  {"big5", 950},
                                                                  {"gb2312", 936},
                                                                  {"gbk", 936},
                                                                  {"ksc5601", 949},
                                                                  {"johab", 1361},
                                                                  {"koi8r", 20866},
                                                                  {"shiftjis", 932},
                                                                  {"iso88591", 28591},
                                                                  {"iso88592", 28592},
                                                                  {"iso88593", 28593},
                                                                  {"iso88594", 28594},
                                                                  {"iso88595", 28595},
                                                                  {"iso88596", 28596},
                                                                  {"iso88597", 28597},
                                                                  {"iso88598", 28598},
                                                                  {"iso88599", 28599}};
    std::string key = NameKey(name);
    if (auto found = names.find(key); found != names.end()) return found->second;
    for (std::string_view prefix : {"ansi", "dos", "cp", "windows"}) {
        if (!key.starts_with(prefix)) continue;
        std::string digits = key.substr(prefix.size());
        bool number = !digits.empty() && digits.size() < 6 &&
                      digits.find_first_not_of("0123456789") == std::string::npos;
        return number ? std::stoi(digits) : CodePage::kWindows1252;
    }
    return CodePage::kWindows1252;
}

size_t AsciiPrefix(std::string_view bytes) {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    size_t length = 0;
    for (uint64_t word; length + sizeof word <= bytes.size(); length += sizeof word) {
        std::memcpy(&word, bytes.data() + length, sizeof word);
        if (word & kHighBits) break;
    }
    while (length < bytes.size() && !(bytes[length] & 0x80)) ++length;
    return length;
}

char16_t* WriteUnits(char32_t codePoint, char16_t* to) {
    if (codePoint >= 0x10000) {
        *to++ = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        codePoint = 0xDC00 | (codePoint & 0x3FF);
    }
    *to++ = static_cast<char16_t>(codePoint);
    return to;
}

// Strict: the bytes of a surrogate are undecodable like those of any other malformed sequence. No
// byte gives more than one unit.
char16_t* DecodeUtf8(std::string_view bytes, char16_t* to) {
    for (size_t i = 0; i < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) {
            *to++ = byte;
            ++i;
            continue;
        }
        const size_t first = i;
        const std::optional<char32_t> codePoint = text::NextNarrow(bytes, i);
        if (codePoint && !IsSurrogate(*codePoint)) {
            to = WriteUnits(*codePoint, to);
        } else {
            *to++ = UndecodableByte(byte);
            i = first + 1;
        }
    }
    return to;
}

// No byte gives more than one unit.
char16_t* DecodeByTable(const CodePageTable& table, std::string_view bytes, char16_t* to) {
    for (size_t i = 0; i < bytes.size(); ++i) {
        unsigned char byte = bytes[i];
        *to = table.single[byte];
        if (table.lead[byte] && i + 1 < bytes.size()) {
            unsigned char trail = bytes[i + 1];
            if (char16_t pair = table.pairs[byte << 8 | trail]) {
                *to = pair;
                ++i;
            }
        }
        ++to;
    }
    return to;
}

bool EncodeUtf8(char32_t codePoint, std::string& out) {
    if (codePoint > 0x10FFFF || IsSurrogate(codePoint)) return false;
    text::AppendNarrow(codePoint, out);
    return true;
}

}  // namespace

CodePage::CodePage(int number)
    : number(number), table(number == kUtf8 ? nullptr : TableOf(number)) {}

CodePage CodePage::FromDrawingName(std::string_view name) {
    try {
        return CodePage(NumberOfName(name));
    } catch (const std::invalid_argument&) {
        return CodePage(kWindows1252);
    }
}

std::u16string CodePage::Decode(std::string_view bytes) const {
    std::u16string out(bytes.size(), u'\0');
    const size_t ascii = AsciiPrefix(bytes);
    char16_t* to = std::copy_n(bytes.data(), ascii, out.data());
    bytes.remove_prefix(ascii);
    to = table ? DecodeByTable(*table, bytes, to) : DecodeUtf8(bytes, to);
    out.resize(size_t(to - out.data()));
    return out;
}

bool CodePage::Encode(char32_t codePoint, std::string& out) const {
    if (codePoint < 0x80 || IsUndecodableByte(codePoint)) {
        out += static_cast<char>(codePoint & 0xFF);
        return true;
    }
    if (!table) return EncodeUtf8(codePoint, out);
    uint16_t bytes = codePoint < 0x10000 ? table->bytes[codePoint] : 0;
    if (bytes > 0xFF) out += static_cast<char>(bytes >> 8);
    if (bytes) out += static_cast<char>(bytes & 0xFF);
    return bytes != 0;
}

bool CodePage::IsDoubleByte() const { return table && !table->pairs.empty(); }

bool CodePage::IsLeadByte(unsigned char byte) const { return table && table->lead[byte]; }
