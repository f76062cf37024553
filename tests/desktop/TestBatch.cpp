// "Translate in batch": kelvara in a form, on a drawing with mixed pages.
#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <map>

#include "apps/desktop/BatchDialog.h"
#include "apps/desktop/Texts.h"
#include "tests/desktop/Program.h"

namespace {

using testing::HasSubstr;

// Runs step once a modal window of that kind is there.
template <class Window, class Step>
void When(const Step& step) {
    QTimer::singleShot(0, qApp, [step] {
        auto* window = dynamic_cast<Window*>(QApplication::activeModalWidget());
        if (window)
            step(*window);
        else
            When<Window>(step);
    });
}

struct Form {
    explicit Form(QWidget& window)
        : window(window),
          to(window.findChild<QComboBox*>("to")),
          output(window.findChild<QLineEdit*>("output")),
          report(window.findChild<QPlainTextEdit*>("report")) {}

    // Starts the run, takes its report when it is there, and leaves the form.
    void Run(std::string& text) const {
        QObject::connect(
            report, &QPlainTextEdit::textChanged, &window,
            [form = *this, &text] {
                if (form.report->toPlainText().isEmpty()) return;
                text = form.report->toPlainText().toStdString();
                QTest::keyClick(&form.window, Qt::Key_Escape);
            },
            Qt::QueuedConnection);
        ClickNamed("start")(window);
    }

    QWidget& window;
    QComboBox* to;
    QLineEdit* output;
    QPlainTextEdit* report;
};

void TranslateInBatch(Program& program) { program.Press(Qt::Key_B, Qt::ControlModifier); }

}  // namespace

TEST(Batch, TranslatesTheSavedDrawingCertifiesAndOpensTheResult) {
    Program program;
    const QString drawing = program.Example("control_panel.dxf");
    ASSERT_TRUE(program.window.GetFiles().Open(drawing));
    program.desktop.SetLanguage(program.Active(), 1);
    std::string report;
    QString output;
    When<QMessageBox>([](QWidget& box) { ClickBox(QMessageBox::Save)(box); });
    When<desktop::BatchDialog>([&](QWidget& window) {
        const Form form(window);
        EXPECT_EQ(window.findChild<QComboBox*>("from")->currentText(), "Português");
        form.to->setFocus();
        while (form.to->currentText() != "Deutsch") QTest::keyClick(form.to, Qt::Key_Down);
        output = form.output->text();
        form.output->setText(drawing);
        ClickNamed("start")(window);
        EXPECT_TRUE(form.report->toPlainText().startsWith("Choose another file"));
        form.output->setText(output);
        form.Run(report);
    });
    TranslateInBatch(program);
    EXPECT_EQ(output, program.File("control_panel_Deutsch.dxf"));
    EXPECT_THAT(report, HasSubstr("Certificate: "));
    EXPECT_THAT(report, HasSubstr(", 0 other values changed"));
    EXPECT_EQ(program.Active().FileName(), output.toStdString());
    EXPECT_EQ(program.window.GetLanguageBox().currentText(), "Deutsch");
    EXPECT_THAT(program.Kelvara({"texts", output}), HasSubstr("\tHaupteinspeisung\n"));
}

TEST(Batch, TellsItsProgressInPhases) {
    Program program;
    desktop::BatchOptions options;
    options.drawing = program.Example("control_panel.dxf");
    options.output = program.File("out.dxf");
    options.database = "sqlite:" + program.File("dictionary.db");
    options.from = "1";
    options.to = "3";
    options.pages = {u"PAG01", u"PAG02"};
    options.attributes = false;
    desktop::BatchRun run(&program.window);
    std::map<std::string, int> phases;
    desktop::BatchOutcome outcome;
    QEventLoop loop;
    run.onProgress = [&](const QString& phase, int percent) {
        phases[phase.toStdString()] = percent;
    };
    run.onEnd = [&](const desktop::BatchOutcome& end) {
        outcome = end;
        loop.quit();
    };
    run.Start(options);
    loop.exec();
    EXPECT_TRUE(outcome.done) << outcome.failure.toStdString();
    EXPECT_TRUE(phases.contains("reading"));
    for (const auto& [phase, percent] : phases) {
        EXPECT_TRUE(percent >= 0 && percent <= 100) << phase;
        EXPECT_NE(desktop::AllTexts().end(),
                  std::find_if(desktop::AllTexts().begin(), desktop::AllTexts().end(),
                               [&](const auto& row) { return row.english == phase; }))
            << phase;
    }
    EXPECT_GT(outcome.report["stringsChanged"].toInteger(), 20);
    EXPECT_EQ(outcome.report["otherValuesChanged"].toInteger(-1), 0);
    const std::string texts = program.Kelvara({"texts", options.output});
    EXPECT_THAT(texts, HasSubstr("\tBemessungsspannung\n"));
    EXPECT_THAT(texts, HasSubstr("\tSaídas do CLP\n")) << "a page that was not chosen";
}

TEST(Batch, ARunThatFailsSaysWhyAndWritesNothing) {
    Program program;
    ASSERT_TRUE(program.window.GetFiles().Open(program.Example("control_panel.dxf")));
    std::string report;
    When<desktop::BatchDialog>([&](QWidget& window) {
        const Form form(window);
        form.output->setText(program.File("none/out.dxf"));
        form.Run(report);
    });
    TranslateInBatch(program);
    EXPECT_THAT(report, HasSubstr("none/out.dxf"));
    EXPECT_EQ(program.desktop.Host().Documents().GetDocumentCount(), 1);
}
