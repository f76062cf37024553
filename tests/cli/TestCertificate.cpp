// The certificate: what it lets pass, and every kind of sabotage that it must catch.
#include <gtest/gtest.h>

#include <set>

#include "apps/cli/Certificate.h"
#include "apps/cli/Failure.h"
#include "tests/cli/SampleDrawing.h"

namespace {

using cli::Certificate;

struct Case {
    const char* name;
    std::string what, with;  // a piece of the drawing and what the new file has there
    size_t strings, others, records;
};

std::string Name(const testing::TestParamInfo<Case>& info) { return info.param.name; }

// Texts that stay until the program ends.
const std::u16string* Kept(const std::u16string& text) {
    static std::set<std::u16string> kept;
    return &*kept.insert(text).first;
}

// What a translation of "Motor" at 30, "Painel" at 34, and the wire "Cabo" at 35 expects.
cli::Expectation Expected(bool records) {
    cli::Expectation expectation;
    expectation.texts = {{0x34, Kept(u"Painel"), Kept(u"Schalt\r\ntafel"), false},
                         {0x30, Kept(u"Motor"), Kept(u"Antrieb"), false},
                         {0x35, Kept(u"Cabo"), Kept(u"Kabel"), true}};
    if (records) expectation.recordKeys = {u"VRN_TQ_OBJS_TRADS"};
    return expectation;
}

std::string Translated() {
    std::string file = SampleDrawing();
    file = Replaced(file, Groups("1 Motor\n0 TEXT\n5 31"), Groups("1 Antrieb\n0 TEXT\n5 31"));
    file = Replaced(file, Groups("1 Painel"), Groups("3 Schalt\n1 \\Ptafel"));
    return Replaced(file, "W1^LCabo", "W1^LKabel");
}

Certificate Certify(const std::string& before, const std::string& after, bool records) {
    return cli::Certify(*dxf::Store::Parse(before), after, Expected(records));
}

class Sabotage : public testing::TestWithParam<Case> {};

TEST_P(Sabotage, IsCounted) {
    const Case& c = GetParam();
    const std::string file = Translated();
    const std::string after = Replaced(file, c.what, c.with);
    ASSERT_NE(after, file) << "the case changes nothing";
    const Certificate certificate = Certify(SampleDrawing(), after, false);
    EXPECT_EQ(certificate.strings, c.strings) << certificate.firstOther;
    EXPECT_EQ(certificate.others, c.others) << certificate.firstOther;
    EXPECT_FALSE(certificate.Holds());
}

INSTANTIATE_TEST_SUITE_P(
    Certificate, Sabotage,
    testing::Values(
        Case{"NumberOfAnotherSpelling", " 40\n2.50\n", " 40\n2.5\n", 3, 1, 0},
        Case{"CoordinateOfALine", "\n1.0\n 21\n1.0\n", "\n1.0\n 21\n1.1\n", 3, 1, 0},
        Case{"TextThatNobodyTranslated", Groups("1 Bomba\n0 INSERT"), Groups("1 Pumpe\n0 INSERT"),
             3, 1, 0},
        Case{"TextInABlock", Groups("1 Bomba\n0 TEXT\n5 21"), Groups("1 Pumpe\n0 TEXT\n5 21"), 3, 1,
             0},
        Case{"WrongTranslation", "Antrieb", "Antriebe", 2, 2, 0},
        Case{"TranslationMissing", "Antrieb", "Motor", 2, 1, 0},
        Case{"HalfAnMtext", "tafel", "", 2, 2, 0},
        Case{"LayerOfATranslatedObject", Groups("5 30\n8 P1"), Groups("5 30\n8 P2"), 3, 1, 0},
        Case{"FirstFieldOfAWire", "W1^LKabel", "W2^LKabel", 2, 2, 0},
        Case{"WireDataOfAnotherEntry", Groups("1070 2"), Groups("1070 3"), 3, 1, 0},
        Case{"GroupAppended", Groups("21 1.0\n"), Groups("21 1.0\n62 1\n"), 3, 1, 0},
        Case{"GroupRemoved", Groups("11 1.0\n21 1.0\n"), Groups("11 1.0\n"), 3, 1, 0},
        Case{"ObjectRemoved", Groups("0 LINE\n5 36\n8 P1\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n"), "", 3,
             1, 0},
        Case{"ObjectAdded", Groups("0 INSERT\n5 37"), Groups("0 POINT\n5 99\n0 INSERT\n5 37"), 3, 1,
             0},
        Case{"RecordAddedWithoutRecording", Groups("0 XRECORD\n5 52"),
             Groups("0 XRECORD\n5 99\n330 50\n0 XRECORD\n5 52"), 3, 1, 0},
        Case{"HandleSeedWithoutRecording", Groups("5 100"), Groups("5 101"), 3, 1, 0},
        Case{"BytesBehindTheEnd", Groups("0 EOF"), Groups("0 EOF") + "x", 3, 1, 0},
        Case{"EndCutOff", Groups("0 ENDSEC\n0 EOF"), Groups("0 ENDSEC"), 3, 1, 0}),
    Name);

TEST(Certificate, HoldsForExactlyWhatIsExpected) {
    const Certificate certificate = Certify(SampleDrawing(), Translated(), false);
    EXPECT_EQ(certificate.Line(), "3 strings changed, 0 other values changed")
        << certificate.firstOther;
    EXPECT_TRUE(certificate.Holds());
}

TEST(Certificate, AnUnchangedFileLacksTheExpectedTexts) {
    const Certificate certificate = Certify(SampleDrawing(), SampleDrawing(), false);
    EXPECT_EQ(certificate.strings, 0u);
    EXPECT_EQ(certificate.others, 3u);
}

TEST(Certificate, ATextInsideAnAttributeFollowsTheAttributes) {
    const auto drawing = [](const std::string& own, const std::string& inside) {
        return Replaced(SampleDrawing(), Groups("1 Motor\n2 TAG\n70 0"),
                        Groups("1 " + own + "\n2 TAG\n101 Embedded Object\n1 " + inside));
    };
    const auto before = dxf::Store::Parse(drawing("Motor", "{\\fArial;Motor}"));
    const struct {
        const char *own, *inside;
        size_t others;
    } cases[] = {
        {"An^Jtrieb", "An\\Ptrieb", 0}, {"An^Jtrieb", "Antrieb", 1}, {"Motor", "An\\Ptrieb", 2}};
    for (const auto& c : cases) {
        cli::Expectation expected;
        expected.texts = {{0x33, Kept(u"Motor"), Kept(u"An\ntrieb"), false}};
        const Certificate certificate = cli::Certify(*before, drawing(c.own, c.inside), expected);
        EXPECT_EQ(certificate.others, c.others) << c.own << c.inside;
    }
}

// Long enough that its halves are compared side by side. Every third text is translated.
constexpr int kTexts = 3000;

std::string LongDrawing(bool translated, int sabotaged = -1, const std::string& with = {}) {
    std::string file = "0 SECTION\n2 ENTITIES\n";
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = translated && i % 3 == 0 ? "Klemme" : "Borne";
        const std::string place = "0 TEXT\n5 " + cli::HexHandle(0x1000u + i) + "\n8 P1\n40 2.5\n1 ";
        file += i == sabotaged ? with : place + text + std::to_string(i) + "\n";
    }
    return Groups(file + "0 ENDSEC\n0 EOF\n");
}

Certificate CertifyLong(const std::string& after) {
    cli::Expectation expectation;
    for (int i = 0; i < kTexts; i += 3) {
        const std::string number = std::to_string(i);
        const std::u16string wide(number.begin(), number.end());
        expectation.texts.push_back(
            {0x1000u + i, Kept(u"Borne" + wide), Kept(u"Klemme" + wide), false});
    }
    return cli::Certify(*dxf::Store::Parse(LongDrawing(false)), after, expectation);
}

TEST(Certificate, ALongDrawingIsComparedToItsEnd) {
    const Certificate whole = CertifyLong(LongDrawing(true));
    EXPECT_EQ(whole.strings, kTexts / 3u);
    EXPECT_TRUE(whole.Holds()) << whole.firstOther;
    for (const int place : {0, 1, kTexts / 8, kTexts / 4 - 1, 700, kTexts / 2 - 1, kTexts / 2,
                            kTexts / 2 + 1, 2200, kTexts - 1}) {
        const std::string text =
            "0 TEXT\n5 " + cli::HexHandle(0x1000u + place) + "\n8 P1\n40 2.5\n1 Bornes\n";
        EXPECT_FALSE(CertifyLong(LongDrawing(true, place, text)).Holds()) << place;
        EXPECT_FALSE(CertifyLong(LongDrawing(true, place)).Holds()) << place;
    }
}

// Recording adds objects below its key in the root dictionary, and nowhere else.
class Recording : public testing::TestWithParam<Case> {};

TEST_P(Recording, IsTold) {
    const Case& c = GetParam();
    std::string after = Translated();
    after = Replaced(after, Groups("5 100"), Groups("5 104"));
    after = Replaced(after, Groups("350 51"), Groups("350 51\n3 VRN_TQ_OBJS_TRADS\n350 101"));
    after = Replaced(after, Groups("0 ENDSEC\n0 EOF"),
                     Groups("0 DICTIONARY\n5 101\n330 50\n3 30\n350 102\n"
                            "0 DICTIONARY\n5 102\n330 101\n3 1\n350 103\n"
                            "0 XRECORD\n5 103\n330 102\n1 Motor\n0 ENDSEC\n0 EOF"));
    after = Replaced(after, c.what, c.with);
    const Certificate certificate = Certify(SampleDrawing(), after, true);
    EXPECT_EQ(certificate.strings, c.strings) << certificate.firstOther;
    EXPECT_EQ(certificate.others, c.others) << certificate.firstOther;
    if (c.others == 0) {
        EXPECT_EQ(certificate.records, c.records);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Certificate, Recording,
    testing::Values(
        Case{"BelowItsKey", "", "", 3, 0, 4},
        Case{"AnotherRootEntry", Groups("3 VRN_TQ_OBJS_TRADS"), Groups("3 ACAD_GROUP"), 3, 4, 0},
        Case{"RootEntryLost", Groups("3 ESQ_VIRTUAL_TQ\n350 51\n"), "", 3, 4, 0},
        Case{"ObjectOfAnotherOwner", Groups("5 103\n330 102"), Groups("5 103\n330 51"), 3, 1, 0},
        Case{"ForeignDictionaryChanged", Groups("330 50\n281 1\n3 A"), Groups("330 50\n281 0\n3 A"),
             3, 1, 0},
        Case{"AnEntityBesides", Groups("0 INSERT\n5 37"), Groups("0 POINT\n5 99\n0 INSERT\n5 37"),
             3, 1, 0}),
    Name);

}  // namespace
