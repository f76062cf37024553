// The exchange with a translator: export, an edited file, import.
#include "tests/cli/CliRun.h"
#include "tests/cli/SampleDrawing.h"

namespace {

class Exchange : public CliTest {
  protected:
    void SetUp() override {
        MakeDictionary("Português,English,Deutsch\nMotor,,Antrieb\nBomba,,Насос\n");
        Write("in.dxf", Replaced(SampleDrawing(), Groups("1 Painel"), Groups("1 V\xE1lvula;a")));
    }
    CliResult Exchanged(const char* command, const QStringList& more, const std::string& in = {}) {
        return Run(
            QStringList{command, "in.dxf", "--to", "3", "--database", "sqlite:d.sqlite"} + more,
            in);
    }
};

TEST_F(Exchange, ExportWritesTheLinesInTheCodePage) {
    const CliResult result = Exchanged("export", {"lines.csv"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "lines            5\ntranslated       2\nuntranslated     3\n"
              "code page        1252\ncharacters lost  5\ncannot return    1\n");
    EXPECT_EQ(Read("lines.csv"),
              "Motor;Antrieb\r\nBomba;?????\r\nV\xE1lvula;a;\r\nCabo;\r\nSinal;\r\n");
    const CliResult utf8 = Exchanged("export", {"-", "--utf8", "--untranslated", "--quiet"});
    EXPECT_EQ(utf8.out, "Válvula;a;\r\nCabo;\r\nSinal;\r\n");
    EXPECT_NE(utf8.err.find("characters lost  0\n"), std::string::npos) << utf8.err;
}

TEST_F(Exchange, ImportTakesWhatMatchesAndReportsTheRest) {
    Write("lines.csv",
          "Motor;Antrieb\r\nBomba;Pumpe\r\nBomba;Kreiselpumpe\r\nbomba;x\r\nCabo; \r\n"
          "Sinal;" +
              std::string(1000, 'x') + "\r\nCabo;Kabel\r\n");
    const CliResult result = Exchanged("import", {"lines.csv", "-o", "out.dxf"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out,
              "taken         2\nunknown       1\nempty         1\nduplicate     1\n"
              "too long      1  row 6 has a text of more than 999 bytes; it and the rows behind it "
              "were not taken\nobjects       11\nlines         5\ntranslated    2\n"
              "untranslated  3\nnot written   0\n"
              "certificate   6 strings changed, 0 other values changed\n");
    const std::string texts = Run({"texts", "out.dxf"}).out;
    EXPECT_NE(texts.find("text\t31\tPumpe\n"), std::string::npos) << texts;
    EXPECT_NE(texts.find("wire\t35\tCabo\n"), std::string::npos) << texts;
}

TEST_F(Exchange, WhatTranslateWritesAnExportAndAnImportWriteToo) {
    const QStringList record{"--record", "-o", "translated.dxf"};
    ASSERT_EQ(Exchanged("translate", record).status, 0);
    ASSERT_EQ(Exchanged("export", {"lines.csv", "--utf8"}).status, 0);
    const CliResult piped = Exchanged("import", {"-", "--utf8", "--record", "-o", "imported.dxf"},
                                      "\xEF\xBB\xBF" + Read("lines.csv"));
    ASSERT_EQ(piped.status, 0) << piped.err;
    EXPECT_EQ(Run({"texts", "imported.dxf"}).out, Run({"texts", "translated.dxf"}).out);
    const CliResult back = Run({"info", "imported.dxf"});
    EXPECT_NE(back.out.find("project language   3\nrecorded languages 1, 2, 3\n"),
              std::string::npos)
        << back.out;
}

}  // namespace
