// The message catalogues as they are installed: every language that the host can name holds every
// text that is asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "tests/support/ScriptedServices.h"
#include "translator/messages/Catalogue.h"

namespace {

using Texts = std::map<int, QString>;

struct Range {
    int first, last;
};

struct Catalogue {
    const char* file;
    std::vector<Range> numbers;
};

void PrintTo(const Catalogue& catalogue, std::ostream* out) { *out << catalogue.file; }

std::set<int> Expected(const Catalogue& catalogue) {
    std::set<int> numbers;
    for (Range range : catalogue.numbers)
        for (int n = range.first; n <= range.last; ++n) numbers.insert(n);
    return numbers;
}

std::set<std::string> LanguageCodes() {
    ScriptedServices services;
    std::set<std::string> codes;
    for (int index = 0; index < 25; ++index) {
        services.languageIndex = index;
        codes.insert(tq::LanguageCode().toStdString());
    }
    return codes;
}

QDomDocument Read(const char* name) {
    QFile file(QString(KV_SOURCE_DIR "/catalogues/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    QDomDocument document;
    QString error;
    EXPECT_TRUE(document.setContent(&file, false, &error)) << name << ": " << error.toStdString();
    return document;
}

// The entries of the first child node of a language, which is the only one that is read.
Texts Entries(const QDomNode& language) {
    Texts texts;
    QDomNodeList entries = language.firstChild().childNodes();
    for (int i = 0; i < entries.size(); ++i) {
        QDomElement entry = entries.at(i).toElement();
        int number = entry.attribute("indice").toInt();
        EXPECT_EQ(QString::number(number), entry.attribute("indice"));
        EXPECT_TRUE(texts.emplace(number, entry.attribute("valor")).second) << "twice: " << number;
    }
    return texts;
}

std::map<std::string, Texts> Sections(const QDomDocument& document) {
    std::map<std::string, Texts> sections;
    QDomNodeList nodes = document.documentElement().childNodes();
    for (int i = 0; i < nodes.size(); ++i) {
        std::string code = nodes.at(i).toElement().attribute("valor").toStdString();
        EXPECT_TRUE(sections.emplace(code, Entries(nodes.at(i))).second) << "twice: " << code;
    }
    return sections;
}

// What a translation has to keep: product names, arrows, numbers of steps, the file type, a colon
// at the end and the blank before what follows. A wide colon brings its own room.
std::string Frame(const QString& text) {
    static const QRegularExpression mark("\\[[A-Z]*\\]|[<>&%|\\\\\\r\\n\\t]|CSV|[0-9]+\\.");
    std::string frame = text.startsWith(' ') ? "blank " : "";
    for (auto marks = mark.globalMatch(text); marks.hasNext();)
        frame += marks.next().captured().toStdString() + " ";
    const bool colon = text.trimmed().endsWith(':') || text.endsWith(u'：');
    return frame + (colon ? ":" : text.endsWith(' ') ? "blank" : "");
}

bool KeepsBlank(const QString& text, const QString& english) {
    return text.endsWith(u'：') || text.endsWith(' ') == english.endsWith(' ');
}

class CatalogueFiles : public testing::TestWithParam<Catalogue> {};

TEST_P(CatalogueFiles, EveryLanguageHoldsEveryText) {
    auto sections = Sections(Read(GetParam().file));
    std::set<std::string> languages;
    for (auto& [language, texts] : sections) {
        languages.insert(language);
        std::set<int> found;
        for (const auto& [number, text] : texts) {
            const QString& english = sections["en"][number];
            SCOPED_TRACE(language + " " + std::to_string(number) + ": " + text.toStdString());
            found.insert(number);
            EXPECT_FALSE(text.trimmed().isEmpty());
            EXPECT_EQ(Frame(text), Frame(english));
            EXPECT_TRUE(KeepsBlank(text, english));
        }
        EXPECT_THAT(found, testing::ContainerEq(Expected(GetParam()))) << language;
    }
    EXPECT_EQ(languages, LanguageCodes());
}

INSTANTIATE_TEST_SUITE_P(
    Installed, CatalogueFiles,
    testing::Values(
        Catalogue{"TQTradutor.config",
                  {{4, 11}, {18, 26}, {28, 63}, {65, 69}, {71, 72}, {74, 84}, {87, 87}, {89, 92}}},
        Catalogue{"TQINC.config", {{6, 6}, {17, 18}}}));

// A language is saved as used when its cell says so, whatever the case.
TEST(CatalogueFile, UsedAndUnusedReadDifferently) {
    for (auto& [language, texts] : Sections(Read("TQTradutor.config")))
        EXPECT_NE(texts[23].compare(texts[24], Qt::CaseInsensitive), 0) << language;
}

}  // namespace
