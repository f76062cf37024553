// Code pages: known characters, and bytes that survive whatever they are.
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/text/CodePage.h"
#include "platform/text/Conversion.h"

namespace {

std::string EncodeAll(const CodePage& page, std::u16string_view text) {
    std::string out;
    for (size_t i = 0; i < text.size();) {
        EXPECT_TRUE(page.Encode(text::NextCodePoint(text, i), out)) << page.Number();
    }
    return out;
}

TEST(CodePage, DecodesAndEncodesKnownText) {
    struct Case {
        int page;
        std::string bytes;
        std::u16string text;
    };
    const Case cases[] = {
        {1252, "\x80 5 - caf\xE9", u"€ 5 - café"},
        {1250, "\xB3\xF3\x64\x9F", u"łódź"},
        {1251, "\xD9\xE8\xF2", u"Щит"},
        {1254, "\xDDzole \xFE", u"İzole ş"},
        {850, "\x87\xD0", u"çð"},
        {932, "\x95\x5C\x8E\xA6 \xB1", u"表示 ｱ"},  // a backslash as second byte
        {936, "\xB5\xE7\xBB\xFA", u"电机"},
        {949, "\xB8\xF0\xC5\xCD", u"모터"},
        {950, "\xA5\x5C", u"功"},
        {1361, "\x88\x61\\", u"가\\"},
        {65001, "M\xC3\xA4hne \xF0\x9F\x94\x8C", u"Mähne 🔌"},
    };
    for (const Case& c : cases) {
        CodePage page(c.page);
        EXPECT_EQ(page.Decode(c.bytes), c.text) << c.page;
        EXPECT_EQ(EncodeAll(page, c.text), c.bytes) << c.page;
    }
}

TEST(CodePage, KeepsBytesThatDecodeToNothing) {
    struct Case {
        int page;
        std::string bytes;
        std::u16string text;
    };
    const Case cases[] = {
        {1252, "a\x81z", u"a\xDC81z"},
        {932, "\x85\x20", u"\xDC85 "},                             // no second byte of that value
        {932, "x\x95", u"x\xDC95"},                                // cut behind the first byte
        {65001, "\xC3", u"\xDCC3"},                                // cut
        {65001, "\xC0\xAF", u"\xDCC0\xDCAF"},                      // overlong
        {65001, "\xED\xB2\x80", u"\xDCED\xDCB2\xDC80"},            // a surrogate
        {65001, "\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},  // above U+10FFFF
    };
    for (const Case& c : cases) {
        CodePage page(c.page);
        EXPECT_EQ(page.Decode(c.bytes), c.text) << c.page;
        EXPECT_EQ(EncodeAll(page, c.text), c.bytes) << c.page;
    }
}

// Single-byte pages and UTF-8 give every byte sequence back. In double-byte pages some characters
// have several spellings, so that there the text comes back and not always its bytes.
TEST(CodePage, RandomBytesSurvive) {
    std::mt19937 random(20240611);
    for (int number : {437,  850,   874,   1250,  1251,  1252, 1253, 1254, 1255, 1256, 1257,
                       1258, 10000, 20866, 28592, 65001, 932,  936,  949,  950,  1361}) {
        CodePage page(number);
        for (int round = 0; round < 300; ++round) {
            std::string bytes(random() % 40, '\0');
            for (char& byte : bytes) byte = static_cast<char>(random());
            std::u16string text = page.Decode(bytes);
            std::string back = EncodeAll(page, text);
            EXPECT_EQ(page.Decode(back), text) << number;
            EXPECT_TRUE(page.IsDoubleByte() || back == bytes) << number;
        }
    }
}

TEST(CodePage, LacksWhatItCannotWrite) {
    std::string out = "kept";
    EXPECT_FALSE(CodePage(1252).Encode(U'Щ', out));
    EXPECT_FALSE(CodePage(1252).Encode(U'\x81', out));
    EXPECT_FALSE(CodePage(932).Encode(U'🔌', out));
    EXPECT_FALSE(CodePage(65001).Encode(0xD800, out));
    EXPECT_FALSE(CodePage(65001).Encode(0x110000, out));
    EXPECT_EQ(out, "kept");
}

TEST(CodePage, IsFoundByTheNamesOfDrawings) {
    const std::pair<const char*, int> names[] = {
        {"ANSI_1252", 1252},  {"ansi_932", 932},  {"dos850", 850},
        {"DOS437", 437},      {"UTF8", 65001},    {"UTF-8", 65001},
        {"ASCII", 1252},      {"ksc5601", 949},   {"BIG5", 950},
        {"iso8859-9", 28599}, {"", 1252},         {"ANSI_", 1252},
        {"ANSI_4711", 1252},  {"ANSI_500", 1252}, {"ANSI_99999999999", 1252},
        {"Klingon", 1252}};
    for (auto [name, number] : names) {
        EXPECT_EQ(CodePage::FromDrawingName(name).Number(), number) << name;
    }
    EXPECT_THROW(CodePage(4711), std::invalid_argument);
    EXPECT_THROW(CodePage(500), std::invalid_argument);
}

TEST(CodePage, KnowsLeadBytes) {
    EXPECT_TRUE(CodePage(932).IsDoubleByte());
    EXPECT_TRUE(CodePage(932).IsLeadByte(0x95));
    EXPECT_FALSE(CodePage(932).IsLeadByte(0xB1));  // half-width katakana stand alone
    EXPECT_FALSE(CodePage(1252).IsDoubleByte());
    EXPECT_FALSE(CodePage(65001).IsLeadByte(0xC3));
}

TEST(CodePage, IsMadeInSeveralThreadsAtOnce) {
    std::vector<std::u16string> results(8);
    std::vector<std::thread> threads;
    for (std::u16string& result : results) {
        threads.emplace_back([&result] { result = CodePage(852).Decode("\x88\x98"); });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::u16string& result : results) EXPECT_EQ(result, u"łś");
}

}  // namespace
