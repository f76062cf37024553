// TQString and TQStringList: conversions, comparison, order in maps, splitting.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/drawing/DbHandle.h"
#include "translator/cad/TQString.h"
#include "translator/cad/TQStringList.h"

namespace {

std::vector<std::u16string> Units(const TQStringList& list) { return {list.begin(), list.end()}; }

TQString RandomText(std::mt19937& random, int alphabet) {
    TQString text;
    for (int length = random() % 6; length > 0; --length) {
        text +=
            static_cast<char16_t>(alphabet ? u'a' + random() % alphabet : 1 + random() % 0xFFFF);
    }
    return text;
}

TEST(TQString, ComesFromAndGoesToEveryStringTypeWithoutLoss) {
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        TQString text = RandomText(random, 0);
        QString qt = text;
        CString mfc = text;
        OdString od = text;
        CMxString mx = text;
        EXPECT_EQ(TQString(qt), text);
        EXPECT_EQ(TQString(mfc), text);
        EXPECT_EQ(TQString(od), text);
        EXPECT_EQ(TQString(mx), text);
        EXPECT_TRUE(text == mfc && text == od && text == static_cast<const char16_t*>(text));
        TQString assigned(u"before");
        EXPECT_EQ(assigned = qt, text);
        EXPECT_EQ(assigned = mfc, text);
    }
}

TEST(TQString, EndsNarrowTextAtAZero) {
    EXPECT_EQ(TQString(QString::fromUtf16(u"ab\0cd", 5)), u"ab");
    EXPECT_EQ(TQString("\xC3\xA9"), u"é");
    EXPECT_EQ(TQString(static_cast<const char*>(nullptr)), u"");
    EXPECT_EQ(TQString(static_cast<const char16_t*>(nullptr)), u"");
    EXPECT_EQ(TQString(OdString("\xC3\xA9")), u"é");
    EXPECT_TRUE(TQString() == static_cast<const char16_t*>(nullptr));
}

TEST(TQString, WritesNumbersAndHandles) {
    EXPECT_EQ(TQString(7, 3), u"007");
    EXPECT_EQ(TQString(1234, 3), u"1234");
    EXPECT_EQ(TQString(-5, 3), u"0-5");  // the zero stands in front of the sign
    EXPECT_EQ(TQString(0, 0), u"0");
    EXPECT_EQ(TQString(-2147483647 - 1, 0), u"-2147483648");
    EXPECT_EQ(TQString(OdDbHandle(uint64_t{0x1AF})), u"1AF");
}

TEST(TQString, MapsCompareLengthsFirst) {
    std::map<TQString, int> map;
    for (const char16_t* key : {u"10", u"9", u"AA", u"Z", u"", u"\xFFFF", u"\xD800"}) map[key] = 0;
    std::vector<std::u16string> keys;
    for (const auto& entry : map) keys.push_back(entry.first);
    EXPECT_EQ(keys,
              (std::vector<std::u16string>{u"", u"9", u"Z", u"\xD800", u"\xFFFF", u"10", u"AA"}));
}

TEST(TQString, ComparesExactly) {
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        TQString a = RandomText(random, 2);
        TQString b = RandomText(random, 2);
        EXPECT_EQ(a.Compare(b), -b.Compare(a));
        EXPECT_EQ(a == b, a.Compare(b) == 0);
        EXPECT_EQ(a != CString(b), a.Compare(b) != 0);
        EXPECT_EQ(b.StartsWith(a), b.substr(0, a.size()) == a);
        EXPECT_EQ(b.Contains(a), b.find(a) != std::u16string::npos);
        bool less = std::less<TQString>()(a, b);
        EXPECT_EQ(less, a.size() < b.size() || (a.size() == b.size() && a.Compare(b) < 0));
    }
    EXPECT_FALSE(TQString(u"a") == TQString(u"A"));
    EXPECT_EQ(TQString(u"ab").Compare(u"abc"), -1);
    EXPECT_FALSE(TQString(u"ab").StartsWith(u"abc"));
    EXPECT_TRUE(TQString(u"Título").EqualsNoCase(u"TÍTULO"));
    EXPECT_FALSE(TQString(u"Título").EqualsNoCase(u"TITULO"));
}

TEST(TQString, JoinsWithEveryKindOfText) {
    TQString a(u"a");
    const char16_t* none = nullptr;
    EXPECT_EQ(a + a + OdString("b") + "\xC3\xA9" + u"w" + none, u"aabéw");
    EXPECT_EQ("x" + (u"y" + a), u"xya");
    EXPECT_EQ(a + CString(u"m"), u"am");
    a += u"bc";
    a += none;
    a += u'd';
    a += a;
    EXPECT_EQ(a, u"abcdabcd");
}

TEST(TQString, ChangesInPlace) {
    TQString text(u" caminho/da/rede \t");
    text.Trim();
    text.Replace(u"/", u"\\");
    text.Replace(u"", u"x");
    text.MakeUpper();
    EXPECT_EQ(text, u"CAMINHO\\DA\\REDE");
    TQString empty;
    empty.Replace(u"/", u"\\");
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(TQString(u" 42x").ToInt(), 42);
    EXPECT_EQ(TQString(u"x42").ToInt(), 0);
}

TEST(TQString, SplitsWithoutEmptyTokens) {
    struct Case {
        const char16_t *text, *delimiters;
        std::vector<std::u16string> tokens;
    };
    const Case cases[] = {
        {u"um||dois|", u"|", {u"um", u"dois"}},
        {u"|", u"|", {}},
        {u"", u"|", {}},
        {u"", u"", {}},
        {u"a|b", u"", {u"a|b"}},
        {u";a,b; ", u",;", {u"a", u"b", u" "}},
        {u"P1$DE", u"$", {u"P1", u"DE"}},
    };
    for (const Case& c : cases) EXPECT_EQ(Units(TQString(c.text).Tokenize(c.delimiters)), c.tokens);
}

TEST(TQStringList, KeepsOrderOnTheWayThere) {
    TQStringList list(std::vector<TQString>{u"b", u"a"});
    list.insert(std::next(list.begin()), u"x");
    EXPECT_EQ(Units(list), (std::vector<std::u16string>{u"b", u"x", u"a"}));
    std::unique_ptr<CStringList> mfc = list.ToCStringList();
    EXPECT_EQ(Units(TQStringList(mfc.get())), Units(list));
    EXPECT_TRUE(TQStringList(static_cast<CStringList*>(nullptr)).empty());
    EXPECT_EQ(list.at(2), u"a");
    EXPECT_EQ(list.at(3), u"");
    EXPECT_EQ(list.Front(), u"b");
    EXPECT_EQ(TQStringList().Front(), u"");
}

}  // namespace
