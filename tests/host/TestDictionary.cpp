// Keeping a dictionary: languages, import by merging, checks.
#include <random>

#include "host/Dictionary.h"
#include "host/Error.h"
#include "tests/host/Support.h"

namespace {

using host::Dictionary;
using host::DictionaryFinding;
using host::OnMissing;

class DictionaryTest : public DictionaryPlace {
  protected:
    DictionaryTest() : dictionary(Url(), OnMissing::Create) {
        dictionary.AddLanguages({"Português", "English", "Deutsch"});
    }
    std::vector<QStringList> Texts() {
        std::vector<QStringList> texts;
        for (const auto& term : dictionary.ReadTerms().terms) texts.push_back(term.texts);
        return texts;
    }

    Dictionary dictionary;
};
ON_FILE_AND_SERVER(DictionaryTest);

TEST_P(DictionaryTest, LanguagesAreNumberedAndTheNextOneGetsItsColumn) {
    dictionary.Import({"Português"}, {{"Motor"}});
    const host::Language added = dictionary.AddLanguage("  Español ");
    EXPECT_EQ(added.key, "4");
    EXPECT_EQ(added.description, "Español");
    EXPECT_TRUE(dictionary.Languages().back().inUse);
    EXPECT_EQ(Texts(), (std::vector<QStringList>{{"Motor", "", "", ""}}));
    EXPECT_TRUE(dictionary.Check().size() == 3);  // the three texts that are missing
}

// What a drawing's code page could not decode is kept as unpaired surrogates; a term may hold it.
TEST_P(DictionaryTest, EveryUnitOfATextComesBack) {
    const QString odd = QString::fromUtf16(u"a\xDC81 z \xD83D\xDE00 \xFFFF \xDBFC\xDC81 \xD801");
    dictionary.Import({"Português", "English"}, {{"Motor", odd}, {odd, "Motor"}});
    EXPECT_EQ(Texts(), (std::vector<QStringList>{{"Motor", odd, ""}, {odd, "Motor", ""}}));
}

TEST_P(DictionaryTest, TenthLanguageComesBehindTheNinth) {
    for (int i = 4; i <= 11; ++i) dictionary.AddLanguage(QString::number(i * 11));
    EXPECT_EQ(dictionary.Languages()[9].key, "10");
    EXPECT_EQ(dictionary.Languages()[10].key, "11");
}

TEST_P(DictionaryTest, RefusedLanguagesChangeNothing) {
    const struct {
        QStringList names;
        const char* reason;
    } cases[] = {{{"Italiano", "ENGLISH"}, "there is a language English already (key 2)"},
                 {{"Italiano", "  "}, "needs a name"}};
    for (const auto& c : cases) {
        const std::string error = ErrorOf([&] { dictionary.AddLanguages(c.names); });
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_EQ(dictionary.Languages().size(), 3u);
    }
}

TEST_P(DictionaryTest, ImportMergesByTheFirstColumn) {
    dictionary.Import({"Português", "English"}, {{"Motor", "Engine"}, {"Porta", "Door"}});
    const auto report = dictionary.Import({"português", "3", "English"},
                                          {{"Motor", "Motor", ""},      // adds to the term
                                           {"Porta", "", "Door"},       // changes nothing
                                           {"", "Tor", "Gate"},         // no source
                                           {"Cabo", "Kabel"},           // new, a short row
                                           {"Cabo", "", "Cable"},       // doubled
                                           {"Fio", QString(251, 'x')},  // too long
                                           {"Fonte", QString(250, 'y')}});
    EXPECT_EQ(Texts(), (std::vector<QStringList>{{"Motor", "Engine", "Motor"},
                                                 {"Porta", "Door", ""},
                                                 {"Cabo", "Cable", "Kabel"},
                                                 {"Fonte", "", QString(250, 'y')}}));
    EXPECT_EQ(report.added, 2);
    EXPECT_EQ(report.changed, 1);
    EXPECT_EQ(report.unchanged, 1);
    EXPECT_EQ(report.empty, std::vector<int>{3});
    EXPECT_EQ(report.doubled, std::vector<int>{5});
    EXPECT_EQ(report.tooLong, std::vector<int>{6});
}

TEST_P(DictionaryTest, RefusedImportsChangeNothing) {
    const struct {
        QStringList header;
        const char* reason;
    } cases[] = {
        {{"Português", "Svenska"}, "no language \"Svenska\" (there are: Português, English"},
        {{"English", "2"}, "has two columns"},
        {{}, "no header"}};
    for (const auto& c : cases) {
        const std::string error = ErrorOf([&] { dictionary.Import(c.header, {{"a", "b"}}); });
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_TRUE(Texts().empty());
    }
}

// Importing a second time what was read out must change nothing, whatever the texts.
TEST_P(DictionaryTest, ImportOfItsOwnTermsChangesNothing) {
    std::mt19937 random(7);
    const QStringList letters{"a",  "é",  "\"", "'", ";",  ",",
                              "\t", "\n", "\\", "%", "漢", "\U0001F600"};
    std::vector<QStringList> rows;
    for (int i = 0; i < 500; ++i) {
        QStringList row{QString::number(i)};
        for (int column = 0; column < 3; ++column) {
            QString text;
            for (unsigned n = random() % 6; n > 0; --n) text += letters[random() % letters.size()];
            if (column == 0)
                row[0] += text;
            else
                row << text;
        }
        rows.push_back(row);
    }
    const QStringList header{"Português", "English", "Deutsch"};
    EXPECT_EQ(dictionary.Import(header, rows).added, 500);
    EXPECT_EQ(Texts(), rows);
    const auto again = dictionary.Import(header, Texts());
    EXPECT_EQ(again.unchanged, 500);
    EXPECT_EQ(again.added + again.changed, 0);
}

TEST_P(DictionaryTest, ChecksFindWhatTranslationsWouldStumbleOver) {
    RunRaw({"INSERT INTO BDTRANSLATOR (LANGUAGE1, LANGUAGE2, LANGUAGE3) VALUES ('Motor', 'a', 'M')",
            "INSERT INTO BDTRANSLATOR (LANGUAGE1, LANGUAGE2) VALUES ('Motor', 'Motor')"});
    std::vector<std::pair<DictionaryFinding::Kind, int>> found;
    for (const auto& finding : dictionary.Check()) found.emplace_back(finding.kind, finding.term);
    using Kind = DictionaryFinding::Kind;
    EXPECT_EQ(found,
              (std::vector<std::pair<Kind, int>>{{Kind::EmptyText, 2}, {Kind::DoubledSource, 2}}));

    RunRaw({"UPDATE BDLANGUAGE SET LANG_KEY = '4' WHERE LANG_KEY = '3'"});
    const auto findings = dictionary.Check();
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].kind, Kind::LanguageKey);
    EXPECT_EQ(findings[1].kind, Kind::MissingColumn);
}

// A server takes none; in a file another program may have left one.
TEST(DictionaryFile, ChecksFindTextsOverTheLengthOfTheirColumn) {
    Folder folder;
    Dictionary dictionary(folder.Database(), OnMissing::Create);
    dictionary.AddLanguage("Português");
    RunRaw(folder.File("dictionary.sqlite"),
           {"INSERT INTO BDTRANSLATOR (LANGUAGE1) VALUES ('" + QString(251, 'x') + "')"});
    const auto findings = dictionary.Check();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].kind, DictionaryFinding::Kind::TooLong);
}

}  // namespace
