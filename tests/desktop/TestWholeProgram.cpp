// One session from start to quit, with nothing but keys and clicks.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTreeWidget>

#include "platform/window/CPropertySheet.h"
#include "platform/window/Styles.h"
#include "tests/desktop/Program.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kTargetOfWizard = 252;

Usuario::Ato Click(int control) {
    return [control](CWnd& window) { Clicar(window, control); };
}

// Chooses the pages PAG01 and PAG02 by the filter and the buttons.
void ChooseTwoPages(QWidget& chooser) {
    auto* list = chooser.findChild<QTreeWidget*>();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->topLevelItemCount(), 8) << "title blocks and frames belong to their pages";
    EXPECT_EQ(list->topLevelItem(1)->text(1), "Alimentação geral");
    auto* filter = chooser.findChild<QLineEdit*>("filter");
    EXPECT_EQ(list->topLevelItem(7)->checkState(0), Qt::Checked) << "all at first";
    ClickNamed("none")(chooser);
    QTest::keyClicks(filter, "pag01");
    ClickNamed("all")(chooser);
    filter->clear();
    QTest::keyClicks(filter, "alimenta");
    ClickNamed("all")(chooser);
    QTest::keyClick(&chooser, Qt::Key_Return);
}

// The project's language by the keys of the box in the status line.
void SetLanguage(Program& program, const char* name) {
    QComboBox& box = program.window.GetLanguageBox();
    box.setFocus();
    for (int i = 0; i < box.count() && box.currentText() != name; ++i)
        QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.currentText(), name);
}

// Records the English texts, then goes to German, which the wizard finishes.
void TranslateToGerman(Program& program) {
    Usuario user;
    user.Entao(Click(kBotaoLer))
        .EntaoNoQt(ChooseTwoPages)
        .Entao([](CWnd& dialog) {
            Escolher(dialog, kListaDestino, "English");
            Clicar(dialog, kBotaoCarregar);
            Clicar(dialog, kBotaoSalvarProjeto);
        })
        .EntaoNoQt(ClickBox(QMessageBox::Ok))  // recorded in English
        .Entao([](CWnd& dialog) {
            Escolher(dialog, kListaDestino, "Deutsch");
            Clicar(dialog, kBotaoCarregar);
            Clicar(dialog, kBotaoTraduzir);
        })
        .Entao([](CWnd& wizard) {
            EXPECT_EQ(TextoDe(PaginaDe(wizard), kTargetOfWizard), "Deutsch");
            Clicar(wizard, ID_WIZNEXT);
        })
        .Entao(Click(ID_WIZNEXT))
        .Entao(Click(ID_WIZFINISH))
        .EntaoNoQt(ClickBox(QMessageBox::Ok));  // the language has been changed
    user.Durante([&] { program.Press(Qt::Key_F9); });
}

void SwitchToEnglish(Program& program) {
    Usuario user;
    user.Entao([](CWnd& wizard) { Escolher(PaginaDe(wizard), kTargetOfWizard, "English"); })
        .Entao(Click(ID_WIZNEXT))
        .Entao(Click(ID_WIZNEXT))
        .Entao(Click(ID_WIZFINISH))
        .EntaoNoQt(ClickBox(QMessageBox::Ok));
    user.Durante([&] { program.Press(Qt::Key_F10); });
}

// Both readers find the same texts; gives them.
std::string TextsOf(Program& program, const QString& drawing) {
    const std::string texts = program.Kelvara({"texts", drawing});
    EXPECT_EQ(texts, program.Python("extract_texts.py", {drawing}));
    return texts;
}

}  // namespace

TEST(WholeProgram, ASessionFromStartToQuit) {
    Program program;
    EXPECT_EQ(program.problem, "");
    const QString drawing = program.Example("block_pages.dxf");
    const QByteArray original = Program::Read(drawing);
    Usuario user;
    user.EntaoNoQt(ChooseFile(drawing));
    user.Durante([&] { program.Press(Qt::Key_O, Qt::ControlModifier); });
    ASSERT_TRUE(program.desktop.Active());
    EXPECT_FALSE(program.window.isWindowModified());

    const size_t whole = program.Pane().View().List()->ItemCount();
    program.ClickPage("PAG02");
    EXPECT_LT(program.Pane().View().List()->ItemCount(), whole / 2);

    SetLanguage(program, "Português");
    EXPECT_TRUE(program.window.isWindowModified());
    TranslateToGerman(program);
    EXPECT_EQ(program.window.GetLanguageBox().currentText(), "Deutsch");
    program.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(program.window.isWindowModified());
    EXPECT_EQ(program.Pane().PageList().topLevelItem(2)->text(1), "Haupteinspeisung")
        << "the titles of the pages are texts too";

    const std::string german = program.Bytes();
    SwitchToEnglish(program);
    const std::string english = program.Bytes();
    EXPECT_TRUE(english != german);
    program.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(program.Bytes() == german);
    EXPECT_EQ(program.window.GetLanguageBox().currentText(), "Deutsch");
    program.Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(program.Bytes() == english);
    EXPECT_EQ(program.window.GetLanguageBox().currentText(), "English");

    const QString copy = program.File("english.dxf");
    user.EntaoNoQt(ChooseFile(copy));
    user.Durante([&] { program.Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); });
    EXPECT_TRUE(program.window.windowTitle().contains("english.dxf"));
    if (QGuiApplication::platformName() == "xcb") {
        EXPECT_NE(program.window.frameGeometry(), program.window.geometry())
            << "no window manager gives it a frame";
    }
    program.Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(program.window.isVisible());
    EXPECT_EQ(program.desktop.Active(), nullptr);

    EXPECT_TRUE(Program::Read(drawing).toStdString() == german);
    EXPECT_TRUE(Program::Read(copy).toStdString() == english);
    const std::string germanTexts = TextsOf(program, drawing);
    EXPECT_THAT(germanTexts, HasSubstr("\tBemessungsspannung\n"));
    EXPECT_THAT(germanTexts, Not(HasSubstr("\tTensão nominal\n")));
    EXPECT_THAT(TextsOf(program, copy), HasSubstr("\tRated voltage\n"));
    EXPECT_THAT(program.Kelvara({"info", drawing}), HasSubstr("project language   3\n"));
    EXPECT_THAT(program.Kelvara({"info", copy}), HasSubstr("project language   2\n"));
    EXPECT_TRUE(Program::Read(drawing) != original);
}
