// The platform's string and list classes.
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>

#include "platform/text/CArray.h"
#include "platform/text/CMxString.h"
#include "platform/text/CString.h"
#include "platform/text/CStringList.h"
#include "platform/text/Conversion.h"
#include "platform/text/OdString.h"

namespace {

std::u16string RandomUnits(std::mt19937& random) {
    std::u16string text(random() % 30, u'\0');
    for (char16_t& unit : text) {
        // Half of them surrogates, paired or not; no zero, which ends a narrow text.
        unit = random() % 2 ? 0xD800 + random() % 0x800 : 1 + random() % 0xFFFF;
    }
    return text;
}

TEST(Conversion, LosesNoSurrogate) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::u16string text = RandomUnits(random);
        EXPECT_EQ(text::WideFromNarrow(text::NarrowFromWide(text)), text);
        EXPECT_EQ(CMxString(CString(text)).wide_str(), text);
        EXPECT_EQ(CString(CMxString(text).ansi_str().c_str()).Text(), text);
        EXPECT_EQ(OdString(OdString(text).narrowText().c_str()).text(), text);
    }
}

TEST(Conversion, WritesTheBytesOfUtf8) {
    EXPECT_EQ(text::NarrowFromWide(u"aé€🔌"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x8C");
    EXPECT_EQ(text::NarrowFromWide(u"\xD83D"), "\xED\xA0\xBD");
    EXPECT_EQ(text::WideFromNarrow("a\xC3z\x80"), u"a\xFFFDz\xFFFD");
}

TEST(Conversion, FoldsLettersOneForOneInEveryLocale) {
    EXPECT_EQ(text::ToUpper(u"tiß äçğ 𐐨"), u"TIß ÄÇĞ 𐐀");
    EXPECT_EQ(text::FoldCase(u"TIÄΣ"), u"tiäσ");
    EXPECT_EQ(text::CompareNoCase(u"Título", u"TÍTULO"), 0);
    EXPECT_EQ(text::CompareNoCase(u"ς", u"Σ"), 0);
    EXPECT_NE(text::CompareNoCase(u"i", u"İ"), 0);
    EXPECT_LT(text::CompareNoCase(u"ab", u"ABC"), 0);
    EXPECT_GT(text::CompareNoCase(u"b", u"ABC"), 0);
    // A letter of two units whose first unit is in common.
    EXPECT_EQ(text::CompareNoCase(u"x\U00010400y", u"X\U00010428Y"), 0);
    EXPECT_NE(text::CompareNoCase(u"\U00010400", u"\U00010401"), 0);
}

TEST(CString, Formats) {
    CString text;
    text.Format(u"%d|%05d|%-4d|%x|%u|%lld", -7, 42, 3, 255, 4000000000u, 1LL << 40);
    EXPECT_EQ(text.Text(), u"-7|00042|3   |ff|4000000000|1099511627776");
    text.Format(u"%s %ls %hs %c%%", u"é", u"w", "\xC3\xA9", u'x');
    EXPECT_EQ(text.Text(), u"é w é x%");
    text.Format(u"[%5s][%-5s][%.2s][%s]", u"ab", u"ab", u"abc", static_cast<char16_t*>(nullptr));
    EXPECT_EQ(text.Text(), u"[   ab][ab   ][ab][]");
    text.Format(u"%u %x", -1, int16_t{-1});
    EXPECT_EQ(text.Text(), u"4294967295 ffff");
    for (const char16_t* wrong : {u"%n", u"%", u"%*d", u"%f", u"%s", u"%d %d"}) {
        EXPECT_THROW(text.Format(wrong, 1), std::invalid_argument);
    }
    EXPECT_THROW(text.Format(u"%d", u"1"), std::invalid_argument);
    EXPECT_EQ(text.Text(), u"4294967295 ffff");
}

TEST(CString, Replaces) {
    struct Case {
        const char16_t *text, *search, *replacement, *result;
        int count;
    };
    const Case cases[] = {
        {u"a/b/", u"/", u"\\", u"a\\b\\", 2}, {u"", u"/", u"x", u"", 0},
        {u"abc", u"", u"x", u"abc", 0},       {u"aaa", u"aa", u"b", u"ba", 1},
        {u"aXa", u"x", u"", u"aXa", 0},       {u"aa", u"a", u"aa", u"aaaa", 2},
    };
    for (const Case& c : cases) {
        CString text(c.text);
        EXPECT_EQ(text.Replace(c.search, c.replacement), c.count);
        EXPECT_EQ(text.Text(), c.result);
    }
}

TEST(CString, TakesPartsWithinItsEnds) {
    CString text(u" \t\x00A0 bc \n");
    EXPECT_EQ(text.Trim(), u"bc");
    EXPECT_EQ(text.Mid(-3, 1), u"b");
    EXPECT_EQ(text.Mid(1, 99), u"c");
    EXPECT_EQ(text.Mid(9), u"");
    EXPECT_EQ(text.Left(-1), u"");
    EXPECT_EQ(text.Right(1), u"c");
    EXPECT_EQ(text.Right(5), u"bc");
    EXPECT_EQ(text.Find(u"d"), -1);
    EXPECT_EQ(CString(u"  \t").Trim(), u"");
    int start = 0;
    CString list(u";;a;b;");
    EXPECT_EQ(list.Tokenize(u";", start), u"a");
    EXPECT_EQ(list.Tokenize(u";", start), u"b");
    EXPECT_EQ(list.Tokenize(u";", start), u"");
    EXPECT_EQ(start, -1);
}

TEST(CStringList, IsWalkedByPositionsWhileItGrows) {
    CStringList list;
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    list.AddTail(u"0");
    POSITION position = list.GetHeadPosition();
    for (int i = 1; i < 1000; ++i) list.AddTail(text::WideFromNarrow(std::to_string(i)));
    int walked = 0;
    while (position)
        EXPECT_EQ(list.GetNext(position).Text(),
                  CString(text::WideFromNarrow(std::to_string(walked++))).Text());
    EXPECT_EQ(walked, 1000);
    EXPECT_EQ(list.GetCount(), 1000);
}

TEST(CArray, RefusesAnIndexOutside) {
    CArray<int> array;
    EXPECT_EQ(array.Add(5), 0);
    EXPECT_EQ(array.Add(6), 1);
    array.RemoveAt(0);
    EXPECT_EQ(array[0], 6);
    EXPECT_THROW(array.GetAt(1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(-1), CInvalidArgException);
}

TEST(OdString, MakesItsWideFormWhenAsked) {
    OdString text(" \xC3\xA9t\xC3\xA9 ");
    EXPECT_TRUE(text.isNarrowOnly());
    text.syncUnicode();
    EXPECT_FALSE(text.isNarrowOnly());
    EXPECT_EQ(text, u" été ");
    EXPECT_EQ(text.trimLeft().trimRight(), u"été");
    EXPECT_EQ(text.iCompare("ÉTÉ"), 0);
    EXPECT_EQ(OdString("a") + "b", OdString(u"ab"));
    EXPECT_EQ(OdString(static_cast<const char*>(nullptr)).getLength(), 0);
    EXPECT_EQ(OdString("abc").mid(1, 9), u"bc");
    EXPECT_EQ(OdString("abc").find("d"), -1);
}

}  // namespace
