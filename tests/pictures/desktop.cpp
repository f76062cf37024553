// Renders the desktop program into PNG files, in a light and in a dark palette.
//
//     desktop_pictures FOLDER LANGUAGE
//
// LANGUAGE is the number of the interface language. Gives 1, and a line for each, when a text does
// not fit its control.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <cstdio>

#include "apps/desktop/RecoveryDialog.h"
#include "apps/desktop/SettingsDialog.h"
#include "tests/desktop/Program.h"
#include "tests/pictures/CutTexts.h"

namespace {

QPalette DarkPalette() {
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Highlight, QColor(38, 79, 120));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    return palette;
}

class Pictures {
  public:
    Pictures(const QString& folder, const char* palette) : folder(folder), palette(palette) {
        QDir().mkpath(folder);
    }

    void Save(QWidget& window, const char* name) {
        const QString file = QStringLiteral("%1/%2-%3.png").arg(folder, name, palette);
        complete &= window.grab().save(file);
        std::printf("%s\n", qPrintable(file));
        for (const QString& text : CutTexts(window)) {
            std::fprintf(stderr, "%s: cut: %s\n", name, qPrintable(text));
            complete = false;
        }
    }
    bool complete = true;

  private:
    QString folder, palette;
};

void Menus(Program& program, Pictures& pictures) {
    int number = 0;
    for (QAction* action : program.window.menuBar()->actions()) {
        action->menu()->popup({0, 0});
        pictures.Save(*action->menu(), qPrintable(QStringLiteral("menu-%1").arg(++number)));
        action->menu()->close();
    }
}

void Windows(Program& program, Pictures& pictures) {
    program.window.GetFiles().Open(program.Example("control_panel.dxf"));
    QCoreApplication::processEvents();
    pictures.Save(program.window, "whole-drawing");
    program.ClickPage("PAG03");
    program.Enter("(+ 1 2)");
    program.Enter("(car 5)");
    program.desktop.SetLanguage(program.Active(), 1);
    QCoreApplication::processEvents();
    pictures.Save(program.window, "page");
    Menus(program, pictures);
}

// With the longest answers that they may have to show.
void FormAndOffer(Program& program, Pictures& pictures) {
    desktop::SettingsDialog form(program.desktop.Settings());
    form.show();
    pictures.Save(form, "settings");
    form.findChild<QLineEdit*>("databaseUrl")
        ->setText("sqlite:/no/such/folder/of/anybody/d.sqlite");
    auto* test = form.findChild<QPushButton*>("test");
    QTest::mouseClick(test, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([test] { return test->isEnabled(); }));
    form.findChild<QLineEdit*>("converter")->setText("program {in}");
    QTest::keyClick(&form, Qt::Key_Return);
    QCoreApplication::processEvents();
    pictures.Save(form, "settings-complaint");

    const desktop::RecoveryFiles files(program.folder.path(), 1);
    const OdDbDatabasePtr drawing = &program.Active().Drawing();
    const std::vector<desktop::LeftWork> works{
        {"/home/ana/plans/pumps/panel.dxf", drawing, {}, true, files, {}},
        {"/home/ana/plans/pumps/cable list.dxf", {}, u"the end is missing", false, files, {}}};
    desktop::RecoveryDialog offer(works);
    offer.show();
    pictures.Save(offer, "recovery");
}

void Dialogs(Program& program, Pictures& pictures) {
    Usuario user;
    user.EntaoNoQt([&](QWidget& chooser) {
        pictures.Save(chooser, "choose-pages");
        chooser.close();
    });
    user.Durante([&] { program.Enter("(tq_seleciona_paginas)"); });
    user.EntaoNoQt([&](QWidget& box) {
            pictures.Save(box, "batch-save");
            ClickBox(QMessageBox::Save)(box);
        })
        .EntaoNoQt([&](QWidget& form) {
            pictures.Save(form, "batch");
            form.close();
        });
    user.Durante([&] { program.Press(Qt::Key_B, Qt::ControlModifier); });
    program.desktop.SetLanguage(program.Active(), 2);
    user.EntaoNoQt([&](QWidget& box) {
        pictures.Save(box, "close");
        box.close();
    });
    user.Durante([&] { program.window.close(); });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    if (argc != 3) {
        std::fputs("usage: desktop_pictures FOLDER LANGUAGE\n", stderr);
        return 2;
    }
    bool complete = true;
    const std::pair<const char*, QPalette> palettes[] = {
        {"light", QApplication::style()->standardPalette()}, {"dark", DarkPalette()}};
    for (const auto& [name, palette] : palettes) {
        QApplication::setPalette(palette);
        Pictures pictures(argv[1], name);
        Program program(nullptr, QString(argv[2]).toInt());
        Windows(program, pictures);
        FormAndOffer(program, pictures);
        Dialogs(program, pictures);
        complete &= pictures.complete;
    }
    return complete && !testing::Test::HasFailure() ? 0 : 1;
}
