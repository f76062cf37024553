// "Translate in batch": kelvara in a form, on a drawing with mixed pages.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>

#include "apps/desktop/BatchDialog.h"
#include "tests/desktop/Program.h"

namespace {

using testing::HasSubstr;

// Starts the run and waits for its report.
std::string ReportOf(QWidget& form) {
    auto* report = form.findChild<QPlainTextEdit*>("report");
    QSignalSpy reported(report, &QPlainTextEdit::textChanged);
    ClickNamed("start")(form);
    while (report->toPlainText().isEmpty() && reported.wait(60000)) {
    }
    return report->toPlainText().toStdString();
}

}  // namespace

TEST(Batch, TranslatesTheSavedDrawingCertifiesAndOpensTheResult) {
    Program program;
    const QString drawing = program.Example("control_panel.dxf");
    ASSERT_TRUE(program.window.GetFiles().Open(drawing));
    program.desktop.SetLanguage(program.Active(), 1);
    std::string refused, report;
    QString output;
    Usuario user;
    user.EntaoNoQt(ClickBox(QMessageBox::Save)).EntaoNoQt([&](QWidget& form) {
        auto* to = form.findChild<QComboBox*>("to");
        EXPECT_EQ(form.findChild<QComboBox*>("from")->currentText(), "Português");
        to->setFocus();
        while (to->currentText() != "Deutsch") QTest::keyClick(to, Qt::Key_Down);
        auto* field = form.findChild<QLineEdit*>("output");
        output = field->text();
        field->setText(drawing);
        refused = ReportOf(form);
        field->setText(output);
        report = ReportOf(form);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    user.Durante([&] { program.Press(Qt::Key_B, Qt::ControlModifier); });
    EXPECT_THAT(refused, HasSubstr("Choose another file"));
    EXPECT_EQ(output, program.File("control_panel_Deutsch.dxf"));
    EXPECT_THAT(report, HasSubstr("Certificate: "));
    EXPECT_THAT(report, HasSubstr(", 0 other values changed"));
    EXPECT_EQ(program.Active().FileName(), output.toStdString());
    EXPECT_EQ(program.window.GetLanguageBox().currentText(), "Deutsch");
    EXPECT_THAT(program.Kelvara({"texts", output}), HasSubstr("\tHaupteinspeisung\n"));
}

TEST(Batch, ARunThatFailsSaysWhyAndWritesNothing) {
    Program program;
    const QString drawing = program.Example("control_panel.dxf");
    ASSERT_TRUE(program.window.GetFiles().Open(drawing));
    std::string report;
    Usuario user;
    user.EntaoNoQt([&](QWidget& form) {
        form.findChild<QLineEdit*>("output")->setText(program.File("none/out.dxf"));
        report = ReportOf(form);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    user.Durante([&] { program.Press(Qt::Key_B, Qt::ControlModifier); });
    EXPECT_THAT(report, HasSubstr("none/out.dxf"));
    EXPECT_EQ(program.desktop.Host().Documents().GetDocumentCount(), 1);
}
