// The command line, the module's absence, failures: the program goes on.
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <stdexcept>

#include "platform/kernel/KVCommand.h"
#include "tests/desktop/Program.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

using testing::HasSubstr;

// What a line prints, without its echo.
QString Answer(Program& program, const QString& line) {
    program.Enter(line);
    return program.Printed().section("> " + line + "\n", -1);
}

}  // namespace

TEST(CommandLine, RunsLispAndCommandsAndPrintsWhatTheySay) {
    Program program;
    EXPECT_EQ(Answer(program, "(+ 1 2)"), "Open a drawing first.\n");
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    int runs = 0;
    program.desktop.Host().Commands().AddCommand(makeNotUndoableFunctionCommand(
        u"COUNTED", [&](CMxCommandContext*) { ++runs; }, CKVCommand::onRequest));
    const struct {
        const char *line, *answer;
    } cases[] = {
        {"(+ 1 2)", "3\n"},
        {"(setq a \"x\")", "\"x\"\n"},
        {"!a", "\"x\"\n"},
        {"(princ \"one\")", "one\"one\"\n"},
        {"(progn (princ \"two\") (princ))", "two"},
        {"(car 5)", nullptr},
        {"(defun c:hello () (princ \"hello\") (princ))", "C:HELLO\n"},
        {"hello", "hello"},
        {"counted", "COUNTED\n"},
        {"(command \"counted\" \"COUNTED\")", "nil\n"},
        {"nonsense", "nonsense: unknown command\n"},
        {"redo", "redo: not possible now\n"},
    };
    for (const auto& one : cases) {
        const QString answer = Answer(program, one.line);
        if (one.answer)
            EXPECT_EQ(answer, one.answer) << one.line;
        else
            EXPECT_TRUE(answer.startsWith("; ")) << answer.toStdString();
    }
    EXPECT_EQ(runs, 3);
}

TEST(CommandLine, RemembersRepeatsAndCompletes) {
    Program program;
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    desktop::CommandField& field = program.window.GetCommandLine().Field();
    program.Enter("(setq n 1)");
    program.Enter("(setq n (+ n 1))");
    program.Enter("");
    EXPECT_TRUE(program.Printed().endsWith("\n3\n"));
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), "(setq n (+ n 1))");
    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), "(setq n 1)") << "there is nothing before the first one";
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.text(), "(setq n (+ n 1))");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "");

    const auto completed = [&](const char* typed) {
        program.Activate();
        field.setFocus();
        QTest::keyClicks(&field, typed);
        QTest::keyClick(field.completer()->popup(), Qt::Key_Down);
        QTest::keyClick(field.completer()->popup(), Qt::Key_Tab);
        field.completer()->popup()->hide();
        const QString text = field.text();
        field.clear();
        return text;
    };
    EXPECT_EQ(completed("kvtranslatea"), "KVTRANSLATEASSIST");
    EXPECT_EQ(completed("(tq_s"), "(tq_seleciona_paginas");
    program.Enter("(defun my-own-function () 1)");
    EXPECT_EQ(completed("(list (my-o"), "(list (my-own-function");
}

TEST(CommandLine, ALoopWithoutEndIsInterruptedByEscapeOrByTheButton) {
    Program program;
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    auto* button = program.window.findChild<QToolButton*>("interrupt");
    EXPECT_FALSE(button->isEnabled());
    int closes = 0;
    std::function<void(std::function<void()>)> whenRunning = [&](const auto& act) {
        QTimer::singleShot(0, &program.window, [&, act] {
            if (!program.desktop.IsBusy()) return whenRunning(act);
            EXPECT_TRUE(button->isEnabled());
            // The window cannot be closed and nothing be typed while the program runs.
            closes += program.window.close();
            QTest::keyClicks(&program.window.GetCommandLine().Field(), "x");
            act();
        });
    };
    const auto during = [&](const std::function<void()>& act) {
        whenRunning(act);
        program.Enter("(while t (setq n 1))");
    };
    during([&] { QTest::keyClick(&program.window, Qt::Key_Escape); });
    EXPECT_TRUE(program.Printed().endsWith("; interrupted\n")) << program.Printed().toStdString();
    during([&] { QTest::mouseClick(button, Qt::LeftButton); });
    EXPECT_EQ(program.Printed().count("; interrupted\n"), 2);
    EXPECT_EQ(closes, 0);
    EXPECT_EQ(program.window.GetCommandLine().Field().text(), "");
    EXPECT_FALSE(button->isEnabled());
    program.Enter("(+ 40 2)");
    EXPECT_TRUE(program.Printed().endsWith("\n42\n"));
}

TEST(Module, OneThatCannotBeUsedIsReportedAndTheProgramRunsWithoutIt) {
    const struct {
        const char *module, *reason;
    } cases[] = {
        {"NoSuchModule.so", "NoSuchModule.so"},
        {"OtherVersion.so", "it was built for version"},
        {"FailingModule.so", "its start failed"},
        {"libkv_text.so", "no module of this program"},
    };
    qputenv("FAILING_MODULE", "start");
    for (const auto& one : cases) {
        Program program(one.module);
        EXPECT_THAT(program.problem.toStdString(), HasSubstr(one.reason));
        EXPECT_THAT(Program::Read(program.desktop.LogFile()).toStdString(), HasSubstr(one.reason));
        ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
        EXPECT_FALSE(program.window.ActionOf("KVTRANSLATEPROJ")->isEnabled());
        EXPECT_EQ(Answer(program, "(+ 1 2)"), "3\n");
    }
}

TEST(Failures, AnUnexpectedExceptionIsShownAndTheProgramLivesOn) {
    Program program;
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    const std::pair<const char*, std::function<void(CMxCommandContext*)>> cases[] = {
        {"no luck", [](CMxCommandContext*) { throw std::runtime_error("no luck"); }},
        {"unknown exception", [](CMxCommandContext*) { throw 5; }},
    };
    for (const auto& [reason, work] : cases) {
        program.desktop.Host().Commands().AddCommand(
            makeUndoableFunctionCommand(u"FAILING", work, CKVCommand::onRequest));
        QString shown;
        Usuario user;
        user.EntaoNoQt([&](QWidget& box) {
            shown = TextOfBox(box);
            ClickBox(QMessageBox::Ok)(box);
        });
        user.Durante([&] { program.Enter("failing"); });
        EXPECT_EQ(shown.toStdString(), std::string("FAILING : ") + reason);
        EXPECT_TRUE(program.Printed().endsWith("FAILING: not done\n"));
        EXPECT_THAT(Program::Read(program.desktop.LogFile()).toStdString(), HasSubstr(reason));
    }
    EXPECT_EQ(Answer(program, "(+ 1 2)"), "3\n");
}

TEST(Failures, AMixedPageIsNamedWithWhatHelps) {
    Program program;
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    QString shown;
    Usuario user;
    user.Entao([](CWnd& dialog) { Clicar(dialog, kBotaoLer); })
        .EntaoNoQt([](QWidget& chooser) {
            ClickNamed("all")(chooser);
            QTest::keyClick(&chooser, Qt::Key_Return);
        })
        .EntaoNoQt([&](QWidget& box) {
            shown = TextOfBox(box);
            ClickBox(QMessageBox::Ok)(box);
        });
    user.Durante([&] { program.Press(Qt::Key_F9); });
    for (const char* part : {"\"PAG01\"", "TEXT ", "Untick \"Attributes\"", "Translate in batch"})
        EXPECT_THAT(shown.toStdString(), HasSubstr(part));

    // With the box unticked it works, and the choice of pages is remembered.
    user.Entao([](CWnd& dialog) {
            Marcar(dialog, kEscopoAtributos, false);
            Clicar(dialog, kBotaoLer);
        })
        .EntaoNoQt([](QWidget& chooser) { QTest::keyClick(&chooser, Qt::Key_Return); })
        .Entao([](CWnd& dialog) {
            EXPECT_GT(ListaDe(dialog, kListaExpressoes).GetItemCount(), 10);
            Clicar(dialog, kBotaoFechar);
        });
    user.Durante([&] { program.Press(Qt::Key_F9); });
}
