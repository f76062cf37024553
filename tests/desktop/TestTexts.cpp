// The table of texts holds what the sources say, in all its languages.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <map>

#include "apps/desktop/Menus.h"
#include "apps/desktop/Texts.h"

namespace {

// The texts that Say() is given in a folder's sources; adjacent literals are one.
QStringList SaidIn(const QString& folder) {
    static const QRegularExpression call(R"re(\bSay\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\))re");
    static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)*)")re");
    QStringList texts;
    for (const QFileInfo& info : QDir(folder).entryInfoList({"*.cpp"})) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto calls = call.globalMatch(QString::fromUtf8(file.readAll()));
        while (calls.hasNext()) {
            QString text;
            auto parts = literal.globalMatch(calls.next().captured(1));
            while (parts.hasNext()) text += parts.next().captured(1);
            texts << text.replace("\\n", "\n").replace("\\\"", "\"");
        }
    }
    return texts;
}

std::map<QString, int> PlaceholdersOf(const char* text) {
    static const QRegularExpression mark("%[0-9p]|\n$");
    std::map<QString, int> found;
    auto marks = mark.globalMatch(QString::fromUtf8(text));
    while (marks.hasNext()) ++found[marks.next().captured()];
    return found;
}

}  // namespace

TEST(Texts, EveryTextOfTheSourcesHasItsRow) {
    QStringList rows;
    for (const desktop::TextRow& row : desktop::AllTexts()) rows << row.english;
    EXPECT_EQ(rows.removeDuplicates(), 0);
    QStringList said = SaidIn(KV_SOURCE_DIR "/apps/desktop") + SaidIn(KV_SOURCE_DIR "/apps/ui");
    EXPECT_GT(said.size(), 80);
    for (const desktop::MenuEntry& entry : desktop::MenuTable()) said << entry.menu << entry.text;
    said.removeAll("-");
    for (const QString& text : said) EXPECT_TRUE(rows.contains(text)) << text.toStdString();
}

TEST(Texts, AllLanguagesHaveTheSamePlaceholdersAndMnemonics) {
    for (const desktop::TextRow& row : desktop::AllTexts()) {
        for (const char* text : {row.german, row.portuguese}) {
            EXPECT_EQ(PlaceholdersOf(text), PlaceholdersOf(row.english)) << text;
            EXPECT_EQ(QString(text).count('&'), QString(row.english).count('&')) << text;
            EXPECT_EQ(QString(text).endsWith(u'…'), QString(row.english).endsWith(u'…')) << text;
        }
    }
}

TEST(Texts, NoMenuHasAMnemonicTwice) {
    for (const int language : {0, 1, 19}) {
        desktop::InstallTexts(language);
        std::map<QString, std::map<QChar, QString>> menus;
        for (const desktop::MenuEntry& entry : desktop::MenuTable()) {
            const QString text = desktop::Say(entry.text);
            if (text == "-") continue;
            const QChar key = text[text.indexOf('&') + 1].toLower();
            const auto [place, added] = menus[entry.menu].try_emplace(key, text);
            EXPECT_TRUE(added) << text.toStdString() << " and " << place->second.toStdString();
        }
    }
    desktop::InstallTexts(0);
}

TEST(Texts, TheLanguageOfTheInterfaceReachesTheToolkitsButtons) {
    const struct {
        int language;
        const char *save, *open;
    } cases[] = {{0, "Save", "&Open…"},
                 {1, "Speichern", "&Öffnen…"},
                 {19, "Salvar", "&Abrir…"},
                 {7, "Save", "&Open…"}};
    for (const auto& one : cases) {
        desktop::InstallTexts(one.language);
        QMessageBox box;
        box.setStandardButtons(QMessageBox::Save);
        EXPECT_EQ(box.button(QMessageBox::Save)->text().remove('&'), one.save);
        EXPECT_EQ(desktop::Say("&Open…"), QString(one.open));
    }
    desktop::InstallTexts(0);
}
