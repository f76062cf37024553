// Translations from the file to the file.
#include <QRegularExpression>
#include <algorithm>
#include <numeric>
#include <random>

#include "tests/cli/CliRun.h"
#include "tests/cli/SampleDrawing.h"

namespace {

const QStringList kDatabase{"--database", "sqlite:d.sqlite"};

class Translate : public CliTest {
  protected:
    void SetUp() override {
        MakeDictionary(
            "Português,English,Deutsch\nMotor,Motor,Antrieb\nBomba,Pump,Pumpe\n"
            "Painel,Panel,Schalttafel\nCabo,Cable,Kabel\nSinal,Signal,Signal\n");
        Write("in.dxf", SampleDrawing());
    }

    CliResult Translation(const QStringList& more) {
        return Run(kDatabase + QStringList{"translate", "in.dxf", "--to", "Deutsch"} + more);
    }
};

const char* const kGerman =
    "text\t30\tAntrieb\ntext\t31\tPumpe\nattribute\t33\tAntrieb\nblock-text\t20\tPumpe\n"
    "block-text\t21\tAntrieb\ntext\t34\tSchalttafel\nblock-text\t20\tPumpe\n"
    "block-text\t21\tAntrieb\ntext\t38\tAntrieb\nwire\t35\tKabel\nvirtual-attribute\t52_"
    "V\tSignal\n";

TEST_F(Translate, WritesEveryKindAndCertifiesIt) {
    const CliResult result = Translation({"-o", "out.dxf"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "objects       11\nlines         5\ntranslated    5\nuntranslated  0\n"
              "not written   0\ncertificate   9 strings changed, 0 other values changed\n");
    EXPECT_EQ(Run({"texts", "out.dxf"}).out, kGerman);
    EXPECT_EQ(Read("in.dxf"), SampleDrawing());
}

TEST_F(Translate, WithoutOutputWritesNothing) {
    const QStringList before = Files();
    const CliResult result = Translation({});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("nothing saved 9 texts would be written"), std::string::npos);
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Read("in.dxf"), SampleDrawing());
}

TEST_F(Translate, InPlaceThroughPipesAndToAFileGiveTheSameDrawing) {
    ASSERT_EQ(Translation({"-o", "out.dxf"}).status, 0);
    const CliResult piped =
        Run(kDatabase + QStringList{"translate", "-", "--to", "3", "-o", "-"}, SampleDrawing());
    EXPECT_EQ(piped.status, 0) << piped.err;
    EXPECT_EQ(piped.out, Read("out.dxf"));
    EXPECT_NE(piped.err.find("9 strings changed, 0 other values changed"), std::string::npos);
    ASSERT_EQ(Translation({"-o", "in.dxf"}).status, 0);
    EXPECT_EQ(Read("in.dxf"), Read("out.dxf"));
}

// "Motor" becomes "Bomba" and "Bomba" becomes "Motor": no text of the block is taken for the other.
TEST_F(Translate, TextsOfABlockMayChangePlaces) {
    MakeDictionary("Português,English,Deutsch\nMotor,,Bomba\nBomba,,Motor\n");
    const CliResult result = Translation({"-o", "out.dxf"});
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string texts = Run({"texts", "out.dxf"}).out;
    EXPECT_NE(texts.find("block-text\t20\tMotor\nblock-text\t21\tBomba\n"), std::string::npos)
        << texts;
}

struct NotWritten {
    const char* name;
    std::string what, with;  // a change of the sample drawing
    std::string term;        // a row of the dictionary
    const char* report;      // what stands in it
};

// A character that the drawing's page lacks takes seven bytes.
std::string Omegas(int count) {
    std::string text;
    while (count-- > 0) text += "Ω";
    return text;
}

class Unwritable : public Translate, public testing::WithParamInterface<NotWritten> {};

TEST_P(Unwritable, IsReportedAndTheRestIsWritten) {
    const NotWritten& c = GetParam();
    Write("in.dxf", Replaced(SampleDrawing(), c.what, c.with));
    MakeDictionary("Português,English,Deutsch\nMotor,,Antrieb\n" + c.term);
    const CliResult result = Translation({"-o", "out.dxf"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find(c.report), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(", 0 other values changed"), std::string::npos) << result.out;
    EXPECT_NE(Run({"texts", "out.dxf"}).out.find("Antrieb"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Translate, Unwritable,
    testing::Values(NotWritten{"TextTooLong", "AC1015", "AC1009", "Bomba,," + Omegas(40) + "\n",
                               "not written   2\n  text 31 \"Bomba\": "},
                    NotWritten{"WireTooLong", "", "", "Cabo,," + Omegas(40) + "\n",
                               "not written   1\n  wire 35 \"Cabo\": "},
                    NotWritten{"BlanksAroundABlockText", Groups("1 Bomba\n0 TEXT\n5 21"),
                               Groups("1  Bomba \n0 TEXT\n5 21"), "Bomba,,Pumpe\n",
                               "not written   1\n  block-text 20 \"Bomba\": not found again"},
                    NotWritten{"TwoStringsOfAWireUnderOneName", Groups("1000 W1^LCabo"),
                               Groups("1000 W1^LCabo\n1000 W1^LCabo"), "Cabo,,Kabel\n",
                               "not written   1\n  wire 35 \"Cabo\": not found again"}),
    [](const auto& info) { return info.param.name; });

// More lines than a thread takes at a time, objects in no order of their handles, and one handle
// far from the others: each object gets the translation of its own text.
TEST_F(Translate, ManyTextsInAnyOrder) {
    std::string terms = "Português,English,Deutsch\n", entities = Groups("2 ENTITIES");
    for (int i = 0; i < 9000; ++i) {
        terms += "T" + std::to_string(i) + ",,U" + std::to_string(i) + "\n";
    }
    Write("terms.csv", terms);
    ASSERT_EQ(Run(kDatabase + QStringList{"db", "import", "terms.csv"}).status, 0);
    std::vector<int> handles(12000);
    std::iota(handles.begin(), handles.end(), 0x1000);
    std::ranges::shuffle(handles, std::mt19937(7));
    for (const int handle : handles) {
        const std::string kind = handle % 3 ? "0 TEXT\n5 " : "0 MTEXT\n5 ";
        entities += Groups(kind + QString::number(handle, 16).toStdString() +
                           "\n8 P1\n40 2.5\n1 T" + std::to_string(handle % 9000));
    }
    const std::string all = Replaced(SampleDrawing(), Groups("2 ENTITIES"), entities);
    for (const std::string far : {"30", "FFFFFFFFFFFFFFF0"}) {
        Write("in.dxf", Replaced(all, Groups("5 30"), Groups("5 " + far)));
        const CliResult result = Translation({"-o", "out.dxf"});
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find(" 12009 strings changed, 0 other"), std::string::npos);
        const auto texts = QString::fromStdString(Run({"texts", "in.dxf"}).out).split('\n');
        const auto translated = QString::fromStdString(Run({"texts", "out.dxf"}).out).split('\n');
        ASSERT_EQ(translated.size(), texts.size());
        for (qsizetype i = 0; i < texts.size(); ++i) {
            if (!texts[i].contains("\tT")) continue;
            EXPECT_EQ(translated[i], QString(texts[i]).replace("\tT", "\tU"));
        }
    }
}

TEST_F(Translate, RecordsStayBelowTheirKeyAndSurviveASecondLanguage) {
    // The root dictionary is the one without an owner, wherever it stands.
    Write("in.dxf", Replaced(SampleDrawing(), Groups("2 OBJECTS"),
                             Groups("2 OBJECTS\n0 DICTIONARY\n5 4F\n330 50\n281 1")));
    const CliResult german = Translation({"--record", "-o", "de.dxf"});
    ASSERT_EQ(german.status, 0) << german.err;
    EXPECT_NE(german.out.find("9 strings changed, 0 other values changed, "), std::string::npos);
    const std::string info = Run({"info", "de.dxf"}).out;
    EXPECT_NE(info.find("project language   3\nrecorded languages 1, 2, 3\n"), std::string::npos)
        << info;
    const CliResult english = Run(kDatabase + QStringList{"translate", "de.dxf", "--to", "English",
                                                          "--record", "-o", "en.dxf"});
    ASSERT_EQ(english.status, 0) << english.err;
    EXPECT_NE(Run({"texts", "en.dxf"}).out.find("text\t31\tPump\n"), std::string::npos);
    EXPECT_EQ(Run(kDatabase + QStringList{"project", "en.dxf"}).out, "2 English\n");
}

TEST_F(Translate, AnObjectWithoutAHandleIsTranslatedButNotRecorded) {
    Write("in.dxf", Replaced(SampleDrawing(), Groups("0 TEXT\n5 31"), Groups("0 TEXT")));
    const CliResult result = Translation({"--record", "-o", "out.dxf"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("not written   1\n  text "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("not recorded: the object has no handle"), std::string::npos);
    EXPECT_NE(result.out.find("9 strings changed, 0 other values changed, "), std::string::npos);
}

TEST_F(Translate, LinesAndTheirCsvAgree) {
    const CliResult lines =
        Run(kDatabase + QStringList{"lines", "in.dxf", "--to", "Deutsch", "--pages", "P1"});
    EXPECT_EQ(lines.out,
              "automatic  Motor   Antrieb      3\nautomatic  Bomba   Pumpe        2\n"
              "automatic  Painel  Schalttafel  1\nautomatic  Cabo    Kabel        1\n"
              "automatic  Sinal   Signal       1\n");
    ASSERT_EQ(Translation({"--csv", "lines.csv", "--pages", "P1"}).status, 0);
    EXPECT_EQ(Read("lines.csv"),
              "state,original,translation,objects\r\nautomatic,Motor,Antrieb,3\r\n"
              "automatic,Bomba,Pumpe,2\r\nautomatic,Painel,Schalttafel,1\r\n"
              "automatic,Cabo,Kabel,1\r\nautomatic,Sinal,Signal,1\r\n");
}

TEST_F(Translate, OfTwoLanguagesWithOneNameTheKeyTellsWhichIsMeant) {
    Change("d.sqlite", "update BDLANGUAGE set LANG_DESCR = 'Deutsch' where LANG_KEY = '2'");
    for (const QStringList& from : {QStringList{}, QStringList{"--from", "1"}}) {
        const QStringList lines = kDatabase + QStringList{"lines", "in.dxf"} + from;
        EXPECT_NE(Run(lines + QStringList{"--to", "2"}).out.find("Pump "), std::string::npos);
        EXPECT_NE(Run(lines + QStringList{"--to", "3"}).out.find("Pumpe "), std::string::npos);
    }
    const QStringList record{"translate", "in.dxf", "--to", "3", "--record", "-o", "out.dxf"};
    EXPECT_EQ(Run(kDatabase + record).status, 0);
    EXPECT_EQ(Run({"texts", "out.dxf"}).out, kGerman);
    const CliResult named = Translation({});
    EXPECT_EQ(named.status, 1);
    EXPECT_NE(named.err.find("several languages are named \"Deutsch\""), std::string::npos);
    EXPECT_NE(Run(kDatabase + QStringList{"db", "check"}).out.find("doubled-language"),
              std::string::npos);
    Run(kDatabase + QStringList{"db", "terms", "--to-csv", "terms.csv"});
    EXPECT_NE(Run(kDatabase + QStringList{"db", "import", "terms.csv"}).out.find("unchanged  5"),
              std::string::npos);
}

TEST_F(Translate, OldDrawingsAreTranslatedButHoldNoRecords) {
    Write("in.dxf", OldDrawing());
    const CliResult refused = Translation({"--record", "-o", "out.dxf"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(IsOneErrorLine(refused.err)) << refused.err;
    EXPECT_FALSE(Files().contains("out.dxf"));
    const CliResult done = Translation({"-o", "out.dxf"});
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_NE(done.out.find("8 strings changed, 0 other values changed\n"), std::string::npos);
}

TEST_F(Translate, TheLanguageOfAnOldDrawingIsKeptByTheHost) {
    Write("in.dxf", OldDrawing());
    ASSERT_EQ(Run({"project", "in.dxf", "--language", "2", "-o", "in.dxf"}).status, 0);
    EXPECT_EQ(Read("in.dxf"), OldDrawing());
    EXPECT_EQ(Run({"project", "in.dxf"}).out, "2\n");
}

}  // namespace
