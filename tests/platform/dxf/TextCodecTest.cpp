// Text survives the way to the file and back, and bytes the way to text and back.
#include "platform/drawing/dxf/TextCodec.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace std::literals;
using dxf::TextCodec;
using dxf::Version;

struct CodecCase {
    Version version;
    const char* page;
    std::string raw;
    std::u16string text;
    std::string written;  // what Encode makes of the text
};

TEST(TextCodec, KnownTexts) {
    const CodecCase cases[] = {
        {Version::R2000, "", "plain", u"plain", "plain"},
        {Version::R2000, "", "Rel\xe9", u"Rel\u00e9", "Rel\xe9"},
        {Version::R2000, "ANSI_1252", "a^Jb^ c^Ld", u"a\nb^c\fd", "a^Jb^ c^Ld"},
        {Version::R2000, "ANSI_1252", "^x 2^", u"^x 2^", "^ x 2^ "},
        {Version::R2000, "ANSI_1252", "\\U+0141\\U+d83D\\U+DE00", u"\u0141\U0001F600",
         "\\U+0141\\U+D83D\\U+DE00"},
        {Version::R2000, "ANSI_1252", "\\U+00E9 \\U+00e", u"\u00e9 \\U+00e", "\xe9 \\U+00e"},
        {Version::R2000, "ANSI_1252", "\\M+182A0", u"\u3042", "\\U+3042"},
        {Version::R2000, "ANSI_1252", "\\M+5B0A1\\M+2A4A4\\M+3B0A1", u"\u554A\u4E2D\uAC00",
         "\\U+554A\\U+4E2D\\U+AC00"},
        {Version::R2000, "ANSI_1252", "\\M+6B0A1\\M+1FFFF", u"\\M+6B0A1\\M+1FFFF",
         "\\M+6B0A1\\U+005CM+1FFFF"},
        {Version::R2000, "ANSI_932", "\x83\x5c\x83\x5e^J", u"\u30bd\u30bf\n", "\x83\x5c\x83\x5e^J"},
        {Version::R2000, "ANSI_1252", "a\x81z", u"a\xDC81z", "a\x81z"},
        {Version::R2007, "ANSI_1252", "Rel\xc3\xa9 \xf0\x9f\x98\x80", u"Rel\u00e9 \U0001F600",
         "Rel\xc3\xa9 \xf0\x9f\x98\x80"},
        {Version::R2007, "ANSI_1252", "a\xc3(\xed\xa0\x80", u"a\xDCC3(\xDCED\xDCA0\xDC80",
         "a\xc3(\xed\xa0\x80"},
    };
    for (const CodecCase& known : cases) {
        SCOPED_TRACE(known.raw);
        const TextCodec codec(known.version, known.page);
        EXPECT_EQ(codec.Decode(known.raw), known.text);
        EXPECT_EQ(codec.Encode(known.text), known.written);
    }
}

constexpr const char* kPages[] = {"ANSI_1252", "ANSI_1251", "ANSI_932", "ANSI_936",
                                  "ANSI_949",  "ANSI_950",  "dos850"};

// A random unit of the kinds that cause trouble.
char16_t RandomUnit(std::mt19937& random) {
    static constexpr char16_t kNasty[] =
        u"\\^ U+M+0159AF\n\r\t\f\u00e9\u0141\u3042\u30bd\u20ac\x7f";
    switch (random() % 4) {
        case 0:
            return char16_t(0xD800 + random() % 0x520);  // surrogates, mostly lone
        case 1:
            return char16_t(random() % 0xD800);
        default:
            return kNasty[random() % (std::size(kNasty) - 1)];
    }
}

TEST(TextCodec, EveryTextComesBack) {
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        const TextCodec codec(random() % 2 ? Version::R2007 : Version::R2000,
                              kPages[random() % std::size(kPages)]);
        std::u16string text;
        for (size_t i = random() % 12; i > 0; --i) text += RandomUnit(random);
        const std::string raw = codec.Encode(text);
        EXPECT_EQ(raw.find_first_of("\r\n"), raw.npos);
        ASSERT_EQ(codec.Decode(raw), text) << raw;
        ASSERT_TRUE(codec.Reads(raw, text)) << raw;
        ASSERT_FALSE(codec.Reads(raw, text + u'x')) << raw;
        if (!text.empty()) {
            ASSERT_FALSE(codec.Reads(raw, text.substr(1))) << raw;
        }
    }
}

// Whatever part of a longer text is looked at as a whole: one character that is not plain is seen
// at every place.
TEST(TextCodec, OneCharacterAmongPlainOnes) {
    constexpr size_t kLength = 70;
    const TextCodec codec(Version::R2000, "ANSI_1252");
    for (const char16_t unit : u"\x1f\x7f^\xe9\u0141\u5c00\u015e\u205c"s) {
        for (size_t place = 0; place < kLength; ++place) {
            std::u16string text(kLength, u'a');
            text[place] = unit;
            const std::string raw = codec.Encode(text);
            EXPECT_NE(raw, std::string(kLength, 'a')) << place;
            EXPECT_EQ(codec.Decode(raw), text) << place;
            EXPECT_TRUE(codec.Reads(raw, text)) << place;
            text[place] = u'a';
            EXPECT_FALSE(codec.Reads(raw, text)) << place;
        }
    }
    const std::string plain(kLength, '~');
    EXPECT_EQ(codec.Encode(codec.Decode(plain)), plain);
}

TEST(TextCodec, UndecodableBytesComeBack) {
    std::mt19937 random(8);
    for (int round = 0; round < 20000; ++round) {
        const TextCodec codec(random() % 2 ? Version::R2007 : Version::R2000,
                              kPages[random() % std::size(kPages)]);
        std::string raw;
        for (size_t i = random() % 12; i > 0; --i)
            raw += char(random() % 3 ? 0x80 + random() % 128 : 'a' + random() % 26);
        const std::u16string text = codec.Decode(raw);
        ASSERT_EQ(codec.Decode(codec.Encode(text)), text);
        if (codec.Utf8()) {
            ASSERT_EQ(codec.Encode(text), raw);
        }
    }
}

}  // namespace
