// The message catalogues as they are installed: every language holds every number that is asked
// for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDomDocument>
#include <QFile>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

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

const char* const languages[] = {"pt", "en", "de", "es", "fr", "it"};

// The buttons are 50 dialog units wide; the four of the wizard have the width of the others.
const int buttons[] = {6, 7, 8, 9, 10, 20, 21, 22, 41, 42, 43, 44, 45, 46, 62, 63, 89, 90, 91, 92};
constexpr int buttonWidth = 11;

std::set<int> Expected(const Catalogue& catalogue) {
    std::set<int> numbers;
    for (Range range : catalogue.numbers)
        for (int n = range.first; n <= range.last; ++n) numbers.insert(n);
    return numbers;
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

class CatalogueFiles : public testing::TestWithParam<Catalogue> {};

TEST_P(CatalogueFiles, EveryLanguageHoldsEveryNumber) {
    auto sections = Sections(Read(GetParam().file));
    EXPECT_EQ(sections.size(), std::size(languages));
    for (const char* language : languages) {
        ASSERT_TRUE(sections.contains(language)) << language;
        std::set<int> found;
        for (const auto& [number, text] : sections[language]) {
            found.insert(number);
            EXPECT_FALSE(text.trimmed().isEmpty()) << language << " " << number;
        }
        EXPECT_THAT(found, testing::ContainerEq(Expected(GetParam()))) << language;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Installed, CatalogueFiles,
    testing::Values(
        Catalogue{"TQTradutor.config",
                  {{4, 11}, {18, 26}, {28, 63}, {65, 69}, {71, 72}, {74, 84}, {87, 87}, {89, 92}}},
        Catalogue{"TQINC.config", {{6, 6}, {17, 18}}}));

TEST(CatalogueFile, LabelsFitTheirButtons) {
    for (auto& [language, texts] : Sections(Read("TQTradutor.config")))
        for (int number : buttons)
            EXPECT_LE(texts[number].size(), buttonWidth) << language << " " << number;
}

TEST(CatalogueFile, FileFilterEndsInABlank) {
    for (auto& [language, texts] : Sections(Read("TQTradutor.config")))
        EXPECT_TRUE(texts[56].endsWith(' ')) << language;
}

}  // namespace
