// The commands one by one: what they print and with which status they end.
#include <QFile>

#include "tests/cli/CliRun.h"
#include "tests/cli/SampleDrawing.h"
#include "tests/support/PostgresServer.h"

namespace {

struct Case {
    const char* name;
    QStringList arguments;
    int status;
    const char* out;  // the whole of it
    const char* err;  // what stands in it
};

std::string Name(const testing::TestParamInfo<Case>& info) { return info.param.name; }

class Command : public CliTest, public testing::WithParamInterface<Case> {
  protected:
    void SetUp() override { Write("in.dxf", SampleDrawing()); }
};

TEST_P(Command, PrintsAndEnds) {
    const Case& c = GetParam();
    const CliResult result = Run(c.arguments);
    EXPECT_EQ(result.status, c.status);
    EXPECT_EQ(result.out, c.out);
    EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
    if (c.status == 1) {
        EXPECT_TRUE(IsOneErrorLine(result.err)) << result.err;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cli, Command,
    testing::Values(
        Case{"NoCommand", {}, 2, "", "subcommand is required"},
        Case{"UnknownCommand", {"frobnicate"}, 2, "", "unexpected \"frobnicate\""},
        Case{"UnknownOption", {"info", "in.dxf", "--frobnicate"}, 2, "", "--frobnicate"},
        Case{"MissingDrawing", {"info"}, 2, "", "DRAWING is required"},
        Case{"TranslateWithoutTarget", {"translate", "in.dxf"}, 2, "", "--to is required"},
        Case{"StrictAndLayer0", {"texts", "in.dxf", "--strict", "--layer-0"}, 2, "", "excludes"},
        Case{"NoPageNamed", {"texts", "in.dxf", "--pages", ","}, 2, "", "names no page"},
        Case{"TwoThingsFromStdin", {"import", "-", "-", "--to", "1"}, 2, "", "standard input"},
        Case{"TwoThingsToStdout",
             {"translate", "in.dxf", "--to", "1", "-o", "-", "--csv", "-"},
             2,
             "",
             "standard output"},
        Case{"Version", {"--version"}, 0, "kelvara 0.1.0\n", ""},
        Case{"Pages", {"pages", "in.dxf"}, 0, "P1    6  7\nP2    2  3\n", ""},
        Case{"PagesJson",
             {"pages", "in.dxf", "--json"},
             0,
             "[\n{\"description\":\"\",\"entities\":6,\"name\":\"P1\",\"texts\":7},\n"
             "{\"description\":\"\",\"entities\":2,\"name\":\"P2\",\"texts\":3}\n]\n",
             ""},
        Case{"TextsOfAPage",
             {"texts", "in.dxf", "--pages", "P2"},
             0,
             "block-text\t20\tBomba\nblock-text\t21\tMotor\ntext\t38\tMotor\n"
             "virtual-attribute\t52_V\tSinal\n",
             ""},
        Case{"AttributesAlone",
             {"texts", "in.dxf", "--no-texts", "--progress"},
             0,
             "attribute\t33\tMotor\nwire\t35\tCabo\nvirtual-attribute\t52_V\tSinal\n",
             "scanning [........................................]   0 %"},
        Case{"TextsAlone",
             {"texts", "in.dxf", "--no-attributes", "--pages", "P2", "--quiet"},
             0,
             "block-text\t20\tBomba\nblock-text\t21\tMotor\ntext\t38\tMotor\n"
             "virtual-attribute\t52_V\tSinal\n",
             ""},
        Case{"UnknownPage", {"texts", "in.dxf", "--pages", "P9"}, 1, "", "no page \"P9\""},
        Case{"StrictPageWithATextFails",
             {"texts", "in.dxf", "--strict", "--pages", "P2"},
             1,
             "",
             "38"},
        Case{"StrictWithoutAttributesPasses",
             {"texts", "in.dxf", "--strict", "--no-attributes", "--pages", "P2"},
             0,
             "block-text\t20\tBomba\nblock-text\t21\tMotor\ntext\t38\tMotor\n"
             "virtual-attribute\t52_V\tSinal\n",
             ""},
        Case{"ProjectWithoutLanguage", {"project", "in.dxf"}, 0, "not set\n", ""},
        Case{"OutputWithoutLanguage", {"project", "in.dxf", "-o", "x.dxf"}, 2, "", "--language"},
        Case{"Info",
             {"info", "in.dxf"},
             0,
             "format             ASCII DXF\nversion            R2000 (AC1015)\n"
             "code page          ANSI_1252\nproject language   not set\n"
             "recorded languages none\npages              P1, P2\nentities\n  ATTRIB 1\n"
             "  INSERT 2\n  LINE 1\n  LWPOLYLINE 1\n  MTEXT 1\n  TEXT 3\nfindings           0\n",
             ""},
        Case{"LispPrints",
             {"run", "in.dxf", "--lisp", "(princ (tq_seleciona_paginas))"},
             0,
             "(P1 P2)",
             ""}),
    Name);

using Usage = CliTest;

TEST_F(Usage, EmptyNamesAndFilesNamedTwiceAreRefused) {
    Write("in.dxf", SampleDrawing());
    Write("lines.csv", "Motor;Antrieb\r\n");
    ASSERT_TRUE(QFile::link("in.dxf", QString::fromStdString(Path("link.dxf"))));
    MakeDictionary("Português,English,Deutsch\nMotor,Motor,Antrieb\n");
    const std::string dictionary = Read("d.sqlite");
    const QStringList before = Files();
    const QStringList translate{"translate", "in.dxf", "--to", "3"};
    const QStringList import{"import", "in.dxf", "lines.csv", "--to", "3"};
    const QList<QStringList> cases{
        translate + QStringList{"-o", ""},
        translate + QStringList{"--csv", ""},
        {"project", "in.dxf", "--language", ""},
        {"copy", "in.dxf", ""},
        {"copy", "", "out.dxf"},
        {"switch", "in.dxf", "--to", ""},
        {"db", "init", "--languages", ""},
        {"db", "add-language", ""},
        {"db", "terms", "--to-csv", ""},
        {"db", "import", ""},
        {"pages", "in.dxf", "--database", ""},
        translate + QStringList{"--csv", "link.dxf"},
        translate + QStringList{"-o", "new.dxf", "--csv", folder.filePath("./new.dxf")},
        translate + QStringList{"-o", "d.sqlite"},
        import + QStringList{"-o", "lines.csv"},
        {"import", "in.dxf", "in.dxf", "--to", "3"},
        {"export", "in.dxf", "./in.dxf", "--to", "3"},
        {"db", "terms", "--to-csv", "d.sqlite"},
    };
    for (const QStringList& arguments : cases) {
        const bool names = arguments.contains("--database");
        const CliResult result =
            Run(names ? arguments : arguments + QStringList{"--database", "sqlite:d.sqlite"});
        EXPECT_EQ(result.status, 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(IsOneErrorLine(result.err)) << result.err;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Read("in.dxf"), SampleDrawing());
    EXPECT_EQ(Read("d.sqlite"), dictionary);
}

TEST_F(Usage, InfoCountsTheEntitiesOfEveryLayout) {
    Write("in.dxf", Replaced(SampleDrawing(), Groups("0 BLOCK\n5 1E"),
                             Groups("0 BLOCK\n5 80\n8 0\n2 *Paper_Space0\n70 0\n0 LINE\n5 81\n8 "
                                    "0\n0 ENDBLK\n5 82\n8 0\n0 BLOCK\n5 1E")));
    const std::string info = Run({"info", "in.dxf"}).out;
    EXPECT_NE(info.find("LINE 2\n"), std::string::npos) << info;
}

using ServerDb = CliTest;

class Db : public CliTest {
  protected:
    void SetUp() override {
        MakeDictionary("Português,English,Deutsch\nMotor,Motor,Antrieb\n\"a;\"\"b\"\"\",x,\n");
    }
    CliResult Db_(const QStringList& arguments) {
        return Run(QStringList{"db", "--database", "sqlite:d.sqlite"} + arguments);
    }
};

TEST_F(Db, LanguagesAndTermsComeBackAsTheyWent) {
    EXPECT_EQ(Db_({"languages"}).out,
              "1  Português  in use\n2  English    in use\n3  Deutsch    in use\n");
    EXPECT_EQ(Db_({"add-language", "Français"}).out, "4  Français  in use\n");
    EXPECT_EQ(Db_({"terms", "--to-csv", "out.csv"}).status, 0);
    EXPECT_EQ(Read("out.csv"),
              "Português,English,Deutsch,Français\r\nMotor,Motor,Antrieb,\r\n"
              "\"a;\"\"b\"\"\",x,,\r\n");
    const CliResult again = Db_({"import", "out.csv", "--json"});
    EXPECT_NE(again.out.find("\"added\": 0"), std::string::npos) << again.out;
    EXPECT_NE(again.out.find("\"unchanged\": 2"), std::string::npos) << again.out;
}

TEST_F(Db, ImportMergesByTheFirstColumnAndReports) {
    Write("more.csv", "Português,Deutsch\r\nMotor,Motor\r\nBomba,Pumpe\r\n,leer\r\nBomba,P2\r\n" +
                          std::string(251, 'x') + ",lang\r\n");
    const CliResult result = Db_({"import", "more.csv"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "added      1\nchanged    1\nunchanged  0\nempty      1  rows 3\n"
              "doubled    1  rows 4\ntoo long   1  rows 5\n");
}

TEST_F(Db, InitAgainKeepsWhatIsThere) {
    EXPECT_EQ(Db_({"init", "--languages", "languages.txt"}).status, 0);
    EXPECT_EQ(Db_({"terms"}).out, "1  Motor  Motor  Antrieb\n2  a;\"b\"  x      \n");
}

TEST_F(Db, CheckNamesWhatIsWrong) {
    const CliResult result = Db_({"check"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("empty"), std::string::npos) << result.out;
    EXPECT_NE(result.err.find("1 finding\n"), std::string::npos) << result.err;
}

// On a server the commands do what they do on a file.
TEST_F(ServerDb, KeepsADictionaryAndTranslatesWithIt) {
    const QStringList database{"--database", PostgresServer::Shared().NewDatabase()};
    Write("languages.txt", "Português\nEnglish\n");
    Write("terms.csv", "Português,English\nMotor,Engine\nBomba,\n");
    Write("in.dxf", SampleDrawing());
    const struct {
        QStringList arguments;
        const char *out, *err;
    } cases[] = {
        {{"db", "init", "--languages", "languages.txt"}, "", "is ready, 2 languages added\n"},
        {{"db", "import", "terms.csv"}, "added      2\n", ""},
        {{"db", "add-language", "Deutsch"}, "3  Deutsch  in use\n", ""},
        {{"db", "languages"}, "2  English    in use\n", ""},
        {{"db", "terms"}, "1  Motor  Engine", ""},
        {{"db", "check"}, "empty", "3 findings\n"},
        {{"lines", "in.dxf", "--from", "1", "--to", "English"}, "Engine", ""},
        {{"translate", "in.dxf", "--from", "1", "--to", "2", "-o", "out.dxf"},
         " strings changed, 0 other values changed",
         ""},
    };
    for (const auto& c : cases) {
        const CliResult result = Run(database + c.arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find(c.out), std::string::npos) << result.out;
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
        EXPECT_EQ(result.err.find("secret"), std::string::npos) << result.err;
    }
    EXPECT_NE(Read("out.dxf").find("Engine"), std::string::npos);
}

}  // namespace
