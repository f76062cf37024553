// Opening, closing and saving, with the questions that belong to them.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QFile>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTest>

#include "tests/desktop/Program.h"

namespace {

using testing::HasSubstr;

void Change(Program& program) { program.desktop.SetLanguage(program.Active(), 2); }

void Append(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(bytes);
}

}  // namespace

TEST(Files, ClosingAsksAboutUnsavedWork) {
    const struct {
        int answer;
        bool closed, saved;
    } cases[] = {{QMessageBox::Cancel, false, false},
                 {QMessageBox::Discard, true, false},
                 {QMessageBox::Save, true, true}};
    for (const auto& one : cases) {
        Program program;
        const QString drawing = program.Example("block_pages.dxf");
        const QByteArray before = Program::Read(drawing);
        ASSERT_TRUE(program.window.GetFiles().Open(drawing));
        Change(program);
        Usuario user;
        user.EntaoNoQt(ClickBox(one.answer));
        user.Durante([&] { program.window.close(); });
        EXPECT_EQ(program.window.isVisible(), !one.closed);
        EXPECT_EQ(program.desktop.Active() == nullptr, one.closed);
        EXPECT_EQ(Program::Read(drawing) != before, one.saved);
    }
}

TEST(Files, SeveralDocumentsStandInTabsAndCloseOneByOne) {
    Program program;
    const QString first = program.Example("block_pages.dxf");
    const QString second = program.Example("control_panel.dxf");
    desktop::Files& files = program.window.GetFiles();
    ASSERT_TRUE(files.Open(first));
    ASSERT_TRUE(files.Open(second));
    ASSERT_TRUE(files.Open(first)) << "comes to the front";
    EXPECT_EQ(program.desktop.Host().Documents().GetDocumentCount(), 2);
    EXPECT_EQ(program.Active().FileName(), first.toStdString());
    EXPECT_EQ(program.desktop.Settings().RecentFiles(), (QStringList{second, first}));
    program.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(program.Active().FileName(), second.toStdString());
    EXPECT_TRUE(program.window.windowTitle().startsWith("control_panel.dxf"));
    program.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(program.desktop.Active(), nullptr);
    EXPECT_FALSE(program.window.ActionOf("SAVE")->isEnabled());
}

TEST(Files, OneThatCannotBeReadIsReported) {
    Program program;
    const QString broken = program.File("broken.dxf");
    Append(broken, "hello");
    for (const QString& path : {broken, program.File("missing.dxf")}) {
        QString shown;
        Usuario user;
        user.EntaoNoQt([&](QWidget& box) {
            shown = TextOfBox(box);
            ClickBox(QMessageBox::Ok)(box);
        });
        user.Durante([&] { EXPECT_FALSE(program.window.GetFiles().Open(path)); });
        EXPECT_THAT(shown.toStdString(), HasSubstr(path.toStdString()));
    }
    EXPECT_EQ(program.desktop.Settings().RecentFiles(), QStringList());
}

TEST(Files, OneThatCannotBeEditedSaysSoAndWhy) {
    Program program;
    const QString cut = program.File("cut.dxf");
    Append(cut,
           "0\nSECTION\n2\nHEADER\n9\n$"
           "ACADVER\n1\nAC1015\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nP\n");
    ASSERT_TRUE(program.window.GetFiles().Open(cut));
    EXPECT_TRUE(program.Active().Drawing().isReadOnly());
    EXPECT_FALSE(program.Printed().isEmpty());
    Usuario user;
    user.EntaoNoQt(ClickBox(QMessageBox::Ok));
    QComboBox& language = program.window.GetLanguageBox();
    user.Durante([&] { QTest::keyClick(&language, Qt::Key_Down); });
    EXPECT_EQ(language.currentText(), "Language not set");
    EXPECT_FALSE(program.window.isWindowModified());
}

TEST(Files, AFileThatAnotherProgramChangedIsOverwrittenOnlyWhenAsked) {
    Program program;
    const QString drawing = program.Example("block_pages.dxf");
    ASSERT_TRUE(program.window.GetFiles().Open(drawing));
    Change(program);
    Append(drawing, "999\nlater\n");
    const QByteArray changed = Program::Read(drawing);
    Usuario user;
    user.EntaoNoQt(ClickBox(QMessageBox::No));
    user.Durante([&] { program.Press(Qt::Key_S, Qt::ControlModifier); });
    EXPECT_TRUE(Program::Read(drawing) == changed);
    EXPECT_TRUE(program.window.isWindowModified());
    user.EntaoNoQt(ClickBox(QMessageBox::Yes));
    user.Durante([&] { program.Press(Qt::Key_S, Qt::ControlModifier); });
    EXPECT_TRUE(Program::Read(drawing) == program.Bytes().c_str());
    EXPECT_FALSE(program.window.isWindowModified());
}

TEST(Loading, ALargeDrawingShowsABarThatCanBeCancelled) {
    Program program;
    const QString large = program.LargeDrawing();
    Usuario user;
    user.EntaoNoQt([](QWidget& bar) {
        ASSERT_TRUE(qobject_cast<QProgressDialog*>(&bar));
        QTest::keyClick(&bar, Qt::Key_Escape);
    });
    user.Durante([&] { EXPECT_FALSE(program.window.GetFiles().Open(large)); });
    EXPECT_EQ(program.desktop.Active(), nullptr);
    ASSERT_TRUE(program.window.GetFiles().Open(large));
    EXPECT_EQ(program.Pane().View().List()->ItemCount(), 120001u);
}
