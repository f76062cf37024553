// The language of a project, switched from the file to the file.
#include <QRegularExpression>
#include <random>

#include "tests/cli/CliRun.h"
#include "tests/cli/SampleDrawing.h"

namespace {

const QStringList kDatabase{"--database", "sqlite:d.sqlite"};

// Without the records, which a switch writes, and the counter of handles.
std::string WithoutRecords(const std::string& drawing) {
    QString text = QString::fromStdString(drawing.substr(0, drawing.find("OBJECTS")));
    return text.remove(QRegularExpression("\\$HANDSEED\n  5\n[0-9A-F]+")).toStdString();
}

class Switch : public CliTest {
  protected:
    void SetUp() override { MakeDictionary(kTerms); }

    // A drawing whose texts are recorded, in the languages of the dictionary.
    void Record(const std::string& drawing, const std::string& to = "Deutsch") {
        Write("in.dxf", drawing);
        const CliResult made =
            Run(kDatabase + QStringList{"translate", "in.dxf", "--from", "1", "--to",
                                        QString::fromStdString(to), "--record", "-o", "in.dxf"});
        ASSERT_EQ(made.status, 0) << made.err;
    }
    CliResult To(const char* language, const QStringList& more) {
        return Run(kDatabase + QStringList{"switch", "in.dxf", "--to", language} + more);
    }
    std::string Texts(const char* file) { return Run({"texts", file}).out; }

    static constexpr const char* kTerms =
        "Português,English,Deutsch\nMotor,Motor,Antrieb\nBomba,Pump,Pumpe\n"
        "Painel,Panel,Schalttafel\nCabo,Cable,Kabel\nSinal,Signal,Signal\n";
};

TEST_F(Switch, EveryKindGoesThereAndBackWithItsCertificate) {
    Record(SampleDrawing());
    const CliResult back = To("Português", {"-o", "pt.dxf"});
    ASSERT_EQ(back.status, 0) << back.err;
    EXPECT_TRUE(
        back.out.starts_with("objects         9\nswitched        9\nnot reversible  0\n"
                             "certificate     9 strings changed, 0 other values changed, "))
        << back.out;
    EXPECT_EQ(WithoutRecords(Read("pt.dxf")), WithoutRecords(SampleDrawing()));
    EXPECT_EQ(Run(kDatabase + QStringList{"project", "pt.dxf"}).out, "1 Português\n");
    // In place, by key, without a dictionary that tells names.
    EXPECT_EQ(Run({"switch", "pt.dxf", "--to", "2", "-o", "pt.dxf"}).status, 0);
    EXPECT_NE(Texts("pt.dxf").find("wire\t35\tCable\n"), std::string::npos);
}

TEST_F(Switch, TextsAndWiresOfAnyContentComeBackByteByByte) {
    std::mt19937 random(11);
    const auto text = [&] {
        static const QString letters = QString::fromUtf8("abXY09 áçñÖß%\\{}Ωж漢");
        QString made("<");
        for (int i = 0; i < 14; ++i) made += letters[static_cast<int>(random() % letters.size())];
        return (made + '>').toStdString();
    };
    std::string entities, terms = "Português,English,Deutsch\n", wire, english;
    for (int i = 0; i < 40; ++i) {
        const std::string term = text(), handle = QString::number(0x200 + i, 16).toStdString();
        wire = std::exchange(english, text());
        terms += term + "," + english + "," + text() + "\n";
        entities += i % 2 ? Groups("0 TEXT\n5 " + handle + "\n8 P1\n40 2.5\n1 " + term + "\n")
                          : Groups("0 LWPOLYLINE\n5 " + handle +
                                   "\n8 P2\n90 0\n1001 VRN_TQ_WIRE\n"
                                   "1070 1\n1070 2\n1000 W^L" +
                                   term + "\n");
    }
    MakeDictionary(terms);
    // In UTF-8, where every text has one spelling.
    const std::string drawing =
        Replaced(Replaced(SampleDrawing(), "AC1015", "AC1024"), Groups("0 LINE\n5 36\n"),
                 entities + Groups("0 LINE\n5 36\n"));
    Record(drawing);
    const std::string german = Texts("in.dxf");
    for (const char* const language : {"1", "2", "3", "1"}) {
        const CliResult done = To(language, {"-o", "in.dxf"});
        ASSERT_EQ(done.status, 0) << done.err;
        EXPECT_NE(done.out.find("switched        49\nnot reversible  0\ncertificate "),
                  std::string::npos)
            << done.out;
        if (*language == '3') {
            EXPECT_EQ(Texts("in.dxf"), german);
        }
        if (*language == '1') {
            EXPECT_EQ(WithoutRecords(Read("in.dxf")), WithoutRecords(drawing));
        }
    }
    // What is edited in a language comes back on the next switch to it.
    ASSERT_EQ(To("2", {"-o", "in.dxf"}).status, 0);
    const auto edited = [](const std::string& before) { return Groups(before + "by hand\n"); };
    const std::string byHand =
        Replaced(Replaced(Read("in.dxf"), Groups("8 P1\n40 2.5\n1 " + english + "\n"),
                          edited("8 P1\n40 2.5\n1 ")),
                 Groups("1000 W^L" + wire + "\n"), edited("1000 W^L"));
    Write("in.dxf", byHand);
    const CliResult back = To("1", {"-o", "in.dxf"});
    EXPECT_NE(back.out.find("switched        49\nnot reversible  2\n"), std::string::npos)
        << back.out;
    EXPECT_EQ(WithoutRecords(Read("in.dxf")), WithoutRecords(drawing));
    ASSERT_EQ(To("2", {"-o", "in.dxf"}).status, 0);
    EXPECT_EQ(WithoutRecords(Read("in.dxf")), WithoutRecords(byHand));
}

struct Remark {
    const char* name;
    std::string what, with;  // a change of the recorded drawing
    std::string report;      // what stands in it
};

class Remarks : public Switch, public testing::WithParamInterface<Remark> {};

TEST_P(Remarks, NameWhatTheWayBackWouldNotRestore) {
    const Remark& c = GetParam();
    Record(SampleDrawing());
    Write("in.dxf", Replaced(Read("in.dxf"), c.what, c.with));
    const std::string before = Read("in.dxf");
    const CliResult tried = To("1", {});
    EXPECT_EQ(tried.status, 0) << tried.err;
    EXPECT_NE(tried.out.find(c.report), std::string::npos) << tried.out;
    EXPECT_NE(tried.out.find("nothing saved"), std::string::npos);
    EXPECT_EQ(Read("in.dxf"), before);
    const CliResult done = To("1", {"-o", "out.dxf"});
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_NE(done.out.find(", 0 other values changed"), std::string::npos) << done.out;
}

INSTANTIATE_TEST_SUITE_P(
    Switch, Remarks,
    testing::Values(
        Remark{"WithoutARecord", Groups("0 LINE\n5 36\n"),
               Groups("0 TEXT\n5 90\n8 P1\n40 2.5\n1 Neu\n0 LINE\n5 36\n"),
               "not reversible  1\n  text 90 \"Neu\": has no record in 1 Português and keeps its "
               "text"},
        Remark{
            "EditedSince", Groups("8 P1\n40 2.5\n1 Pumpe\n"), Groups("8 P1\n40 2.5\n1 Neu\n"),
            "not reversible  1\n  text 31 \"Neu\": was edited since it was recorded; its record in "
            "3 Deutsch said \"Pumpe\""},
        Remark{"OuterBlanks", Groups("8 P1\n40 2.5\n1 Pumpe\n"),
               Groups("8 P1\n40 2.5\n1  Pumpe \n"),
               "not reversible  1\n  text 31 \"Pumpe\": would come back as \"Pumpe\""},
        Remark{"TwoStringsOfOneWire", Groups("1000 W1^LKabel\n"),
               Groups("1000 N^LL1\n1000 W1^LKabel\n"),
               "not reversible  1\n  wire 35 \"L1\": shares one record with another string of its "
               "object, and keeps its text"}),
    [](const auto& info) { return info.param.name; });

// Two texts of a block that change places, and one that stands there twice.
TEST_F(Switch, TextsOfABlockAreToldApart) {
    MakeDictionary("Português,English,Deutsch\nMotor,Motor,Bomba\nBomba,Pump,Motor\n");
    const std::string drawing =
        Replaced(SampleDrawing(), Groups("0 ENDBLK\n5 1F"),
                 Groups("0 TEXT\n5 22\n8 0\n40 2.5\n1 Motor\n0 ENDBLK\n5 1F"));
    Record(drawing, "English");
    ASSERT_EQ(To("3", {"-o", "in.dxf"}).status, 0);
    EXPECT_NE(Texts("in.dxf").find("block-text\t20\tMotor\nblock-text\t21\tBomba\n"
                                   "block-text\t22\tBomba\n"),
              std::string::npos)
        << Texts("in.dxf");
    ASSERT_EQ(To("1", {"-o", "in.dxf"}).status, 0);
    EXPECT_EQ(WithoutRecords(Read("in.dxf")), WithoutRecords(drawing));
}

TEST_F(Switch, RefusesWithOneLineAndWritesNothing) {
    Write("in.dxf", SampleDrawing());
    const auto refused = [&](const char* language, const QStringList& more, const char* reason) {
        const QStringList files = Files();
        const CliResult result = To(language, more + QStringList{"-o", "out.dxf"});
        EXPECT_EQ(result.status, 1);
        EXPECT_TRUE(IsOneErrorLine(result.err)) << result.err;
        EXPECT_NE(result.err.find(reason), std::string::npos) << result.err;
        EXPECT_EQ(Files(), files);
    };
    refused("1", {}, "has no language yet");
    Record(SampleDrawing());
    refused("Deutsch", {}, "is in language 3 Deutsch already");
    refused("Klingon", {}, "Klingon");
    refused("1", {"--strict"}, "is not an OdDbBlockReference");
    Write("in.dxf", Replaced(Read("in.dxf"), "\nEObjString\n", "\nOther\n"));
    refused("1", {}, "is not an EObjString");
    Write("in.dxf", OldDrawing());
    refused("1", {}, "holds no translation records");
}

TEST_F(Switch, StrictSwitchesAProjectOfBlockReferences) {
    Record(ReadFile(KV_SOURCE_DIR "/examples/block_pages.dxf"));
    MakeDictionary(kTerms);
    const CliResult strict = To("1", {"--strict", "-o", "strict.dxf"});
    ASSERT_EQ(strict.status, 0) << strict.err;
    ASSERT_EQ(To("1", {"-o", "mixed.dxf"}).status, 0);
    EXPECT_EQ(Read("strict.dxf"), Read("mixed.dxf"));
}

}  // namespace
