// The form of the settings with real keys and clicks, and what the program does with them.
#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "apps/desktop/DatabaseCheck.h"
#include "apps/desktop/SettingsChoices.h"
#include "apps/desktop/SettingsDialog.h"
#include "apps/desktop/Texts.h"
#include "platform/win32/CodePages.h"
#include "tests/desktop/Program.h"
#include "tests/recovery/Work.h"
#include "tests/support/PostgresServer.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// The user answers the box that comes, behind a bar for as long as it takes to come.
void WhenBox(const std::function<void(QMessageBox&)>& step) {
    QTimer::singleShot(0, qApp, [step] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box)
            step(*box);
        else
            WhenBox(step);
    });
}

void ExpectBox(const char* part) {
    WhenBox([part](QMessageBox& box) {
        EXPECT_THAT(box.text().toStdString(), HasSubstr(part));
        QTest::keyClick(&box, Qt::Key_Return);
    });
}

// What a user types into the named field, in place of what stands there.
void Type(QWidget& form, const char* name, const QString& text) {
    auto* field = form.findChild<QLineEdit*>(name);
    auto* combo = form.findChild<QComboBox*>(name);
    if (!field && combo) field = combo->lineEdit();
    ASSERT_TRUE(field) << name;
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

QString TextOf(QWidget& form, const char* name) { return form.findChild<QLabel*>(name)->text(); }

class SettingsForm : public testing::Test {
  protected:
    ~SettingsForm() override { SetAnsiCodePage(1252); }

    QString File(const char* name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    host::Settings settings{folder.filePath("kelvara.ini")};
};

TEST_F(SettingsForm, StoresEverythingAtOkAndNothingAtCancel) {
    for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
        settings.SetRecentFiles({"/a.dxf", "/b.dxf", "/c.dxf"});
        desktop::SettingsDialog form(settings);
        form.show();
        auto* language = form.findChild<QComboBox*>("language");
        EXPECT_EQ(language->count(), 25);
        QTest::keyClicks(language, "Portu");
        Type(form, "databaseUrl", "sqlite:/srv/shared.sqlite");
        Type(form, "codePage", "1250");
        Type(form, "converter", R"("/opt/my converter" -v """quoted""" {in} {out})");
        Type(form, "networkFolder", "/srv/plans");
        auto* recent = form.findChild<QListWidget*>("recent");
        QTest::mouseClick(recent->viewport(), Qt::LeftButton, {},
                          recent->visualItemRect(recent->item(1)).center());
        QTest::mouseClick(form.findChild<QPushButton*>("removeRecent"), Qt::LeftButton);
        QTest::keyClick(&form, end);
        EXPECT_FALSE(form.isVisible());
        if (end == Qt::Key_Escape) {
            EXPECT_EQ(settings.LanguageIndex(), 0);
            EXPECT_EQ(settings.RecentFiles().size(), 3);
        }
    }
    const host::Settings stored(File("kelvara.ini"));
    EXPECT_EQ(stored.LanguageIndex(), 19);
    EXPECT_EQ(stored.DatabaseUrl(), "sqlite:/srv/shared.sqlite");
    EXPECT_EQ(stored.CodePage(), 1250);
    EXPECT_EQ(GetACP(), 1250u) << "the next exchange file has it";
    EXPECT_EQ(stored.DwgConverter(),
              QStringList({"/opt/my converter", "-v", "\"quoted\"", "{in}", "{out}"}));
    EXPECT_EQ(stored.NetworkFolder(), "/srv/plans");
    EXPECT_EQ(stored.RecentFiles(), QStringList({"/a.dxf", "/c.dxf"}));

    desktop::SettingsDialog again(settings);
    EXPECT_TRUE(again.findChild<QComboBox*>("codePage")->currentText().startsWith("1250 "));
    again.accept();
    EXPECT_EQ(settings.DwgConverter(), stored.DwgConverter()) << "as it was shown";
}

TEST_F(SettingsForm, SaysWhatCannotBeUsedAndStays) {
    const struct {
        const char *field, *text, *complaint;
    } cases[] = {
        {"databaseUrl", "dictionary.sqlite", "no address of a database"},
        {"databaseUrl", "postgresql://me@server", "names no database"},
        {"converter", "program {in}", "{in} and {out}"},
        {"codePage", "932", "single bytes"},
        {"codePage", "99999", "single bytes"},
        {"codePage", "Cyrillic", "single bytes"},
    };
    for (const auto& one : cases) {
        desktop::SettingsDialog form(settings);
        form.show();
        Type(form, one.field, one.text);
        QTest::keyClick(&form, Qt::Key_Return);
        EXPECT_TRUE(form.isVisible()) << one.text;
        EXPECT_THAT(TextOf(form, "complaint").toStdString(), HasSubstr(one.complaint));
    }
    EXPECT_EQ(settings.CodePage(), 1252);
    EXPECT_EQ(GetACP(), 1252u);
    for (const desktop::ExchangePage& page : desktop::ExchangePages())
        EXPECT_NO_THROW(SetAnsiCodePage(page.number)) << page.number;
}

TEST_F(SettingsForm, SaysThatALanguageNeedsARestartInEveryLanguageItHas) {
    for (const int language : {0, 1, 19}) {
        desktop::InstallTexts(language);
        const desktop::SettingsDialog form(settings);
        QStringList notes;
        for (const QLabel* label : form.findChildren<QLabel*>()) notes << label->text();
        EXPECT_TRUE(notes.contains(desktop::Say("A new interface language shows after a restart.")))
            << language;
    }
    desktop::InstallTexts(0);
}

// A language of the catalogues that the form does not offer could never be chosen.
TEST_F(SettingsForm, OffersEveryLanguageOfTheCatalogues) {
    QFile catalogue(KV_SOURCE_DIR "/catalogues/TQTradutor.config");
    ASSERT_TRUE(catalogue.open(QIODevice::ReadOnly));
    static const QRegularExpression section("<idioma valor=\"(\\w+)\"");
    QStringList codes;
    for (const desktop::InterfaceLanguage& row : desktop::InterfaceLanguages()) codes << row.code;
    auto sections = section.globalMatch(QString::fromUtf8(catalogue.readAll()));
    int found = 0;
    for (; sections.hasNext(); ++found) {
        const QString code = sections.next().captured(1);
        EXPECT_TRUE(codes.contains(code)) << code.toStdString();
    }
    EXPECT_EQ(found, 24);
}

class DictionaryTrial : public SettingsForm {
  protected:
    // What the form shows once the trial is over.
    std::string Tried(const QString& url) {
        desktop::SettingsDialog form(settings);
        form.show();
        Type(form, "databaseUrl", url);
        auto* button = form.findChild<QPushButton*>("test");
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(button->isEnabled());
        EXPECT_TRUE(QTest::qWaitFor([&] { return button->isEnabled(); }, 60000));
        return TextOf(form, "testResult").toStdString();
    }
};

TEST_F(DictionaryTrial, TellsWhatAFileHolds) {
    Program program;
    EXPECT_THAT(Tried(program.desktop.Host().DatabaseUrl()), StartsWith("It works: 5 languages, "));
    EXPECT_THAT(Tried("sqlite:" + File("new.sqlite")), HasSubstr("no such file yet"));
    EXPECT_FALSE(QFile::exists(File("new.sqlite"))) << "a trial makes nothing";
    EXPECT_THAT(Tried("sqlite:" + File("none/new.sqlite")), HasSubstr("does not exist"));
    EXPECT_THAT(Tried("sqlite:" KV_SOURCE_DIR "/README.md"), HasSubstr("no SQLite database"));
    EXPECT_THAT(Tried("mysql://x/y"), HasSubstr("no address of a database"));
}

class ServerDictionaryTrial : public DictionaryTrial {};

TEST_F(ServerDictionaryTrial, TellsWhatAServerHolds) {
    PostgresServer& server = PostgresServer::Shared();
    const QString url = server.NewDatabase();
    EXPECT_THAT(Tried(url), HasSubstr("kelvara db init"));
    Program program;
    QProcess kelvara;
    kelvara.start(KV_BINARY_DIR "/bin/kelvara", {"--database", url, "db", "init", "--languages",
                                                 KV_SOURCE_DIR "/examples/languages.txt"});
    ASSERT_TRUE(kelvara.waitForFinished());
    EXPECT_EQ(Tried(url), "It works: 5 languages, 0 terms.");
    EXPECT_THAT(Tried(server.Url("none")), HasSubstr("none"));
    QString wrong = url;
    wrong.replace("secret", "wrong-word");
    const std::string refused = Tried(wrong);
    EXPECT_THAT(refused, testing::Not(HasSubstr("wrong-word")));
    EXPECT_THAT(refused, HasSubstr("password"));
}

TEST(Settings, MenuShowsTheForm) {
    Program program;
    Usuario user;
    user.EntaoNoQt([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Settings");
        Type(form, "codePage", "1251");
        QTest::keyClick(&form, Qt::Key_Return);
    });
    desktop::AddSettingsEntry(program.window);
    user.Durante([&] { program.window.ActionOf("settings")->trigger(); });
    EXPECT_EQ(program.desktop.Settings().CodePage(), 1251);
    SetAnsiCodePage(1252);
}

TEST(Settings, ConverterOpensDwgDrawingsAsDrawingsToBeSaved) {
    Program program;
    const QString drawing = program.Example("block_pages.dxf");
    QFile dwg(program.File("plan.dwg"));
    ASSERT_TRUE(dwg.open(QIODevice::WriteOnly));
    dwg.write("AC1032 and what a converter would understand");
    dwg.close();

    ExpectBox("the settings name no converter");
    EXPECT_FALSE(program.window.GetFiles().Open(dwg.fileName()));

    program.desktop.Settings().SetDwgConverter(
        {"sh", "-c", "cp \"$3\" \"$2\"", "sh", "{in}", "{out}", drawing});
    ExpectBox("may be missing");
    EXPECT_TRUE(program.window.GetFiles().Open(dwg.fileName()));
    host::Document& document = program.Active();
    EXPECT_EQ(document.FileName(), program.File("plan.dxf").toStdString());
    EXPECT_TRUE(document.Drawing().isModified());
    EXPECT_TRUE(program.window.GetFiles().Save(document));
    EXPECT_EQ(Program::Read(program.File("plan.dxf")), Program::Read(drawing));
}

}  // namespace
