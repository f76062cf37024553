// Options in, report out.
#include "apps/desktop/BatchDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QJsonArray>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "apps/desktop/Guard.h"
#include "apps/desktop/Texts.h"
#include "host/Dictionary.h"

namespace desktop {

namespace {

QString ReportText(const QJsonObject& report) {
    QString text;
    const auto line = [&](const char* name, const char* key) {
        text +=
            QStringLiteral("%1: %2\n").arg(Say(name)).arg(report[QLatin1String(key)].toInteger());
    };
    line("Objects", "objects");
    line("Lines", "lines");
    line("Translated", "translated");
    line("Not translated", "untranslated");
    line("Written", "written");
    for (const auto& value : report["notWritten"].toArray()) {
        const QJsonObject one = value.toObject();
        text += Say("Not written: %1 %2 \"%3\": %4\n")
                    .arg(one["kind"].toString(), one["key"].toString(), one["text"].toString(),
                         one["reason"].toString());
    }
    return text + "\n" +
           Say("Certificate: %1 texts changed, %2 other values changed")
               .arg(report["stringsChanged"].toInteger())
               .arg(report["otherValuesChanged"].toInteger());
}

}  // namespace

BatchDialog::BatchDialog(QWidget* parent, Desktop& desktop, host::Document& document)
    : QDialog(parent),
      desktop(desktop),
      document(document),
      run(this),
      form(new QWidget(this)),
      from(new QComboBox(form)),
      to(new QComboBox(form)),
      texts(new QCheckBox(Say("Texts"), form)),
      attributes(new QCheckBox(Say("Attributes"), form)),
      layer0(new QCheckBox(Say("Layer 0"), form)),
      record(new QCheckBox(Say("Record the translations in the drawing"), form)),
      table(new QCheckBox(Say("Write the table of lines beside it, as CSV"), form)),
      openResult(new QCheckBox(Say("Open the result"), form)),
      pageButton(new QPushButton(Say("All pages"), form)),
      start(nullptr),
      close(nullptr),
      output(new QLineEdit(form)),
      progress(new QProgressBar(this)),
      report(new QPlainTextEdit(this)) {
    setWindowTitle(Plain(Say("Translate in &batch…")));
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeForm());
    column->addWidget(progress);
    column->addWidget(report, 1);
    MakeButtons();
    AddLanguages();
    SuggestOutput();
    run.onProgress = [this](const QString& phase, int percent) {
        progress->setRange(0, 100);
        progress->setValue(percent);
        progress->setFormat(Say(phase.toUtf8().constData()) + " %p %");
    };
    run.onEnd = [this](const BatchOutcome& outcome) { End(outcome); };
    resize(560, 480);
}

QWidget* BatchDialog::MakeForm() {
    from->setObjectName("from");
    to->setObjectName("to");
    output->setObjectName("output");
    for (QCheckBox* box : {texts, attributes, openResult}) box->setChecked(true);
    record->setChecked(document.Drawing().hasDictionaries());
    record->setEnabled(document.Drawing().hasDictionaries());
    connect(to, &QComboBox::currentIndexChanged, this, [this] { SuggestOutput(); });
    connect(pageButton, &QPushButton::clicked, this, [this] { ChoosePages(); });
    pageButton->setAutoDefault(false);
    auto* what = new QHBoxLayout;
    for (QCheckBox* box : {texts, attributes, layer0}) what->addWidget(box);
    what->addStretch(1);
    auto* layout = new QFormLayout(form);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addRow(Say("&From:"), from);
    layout->addRow(Say("&To:"), to);
    layout->addRow(Say("&Pages:"), pageButton);
    layout->addRow(Say("Search in:"), what);
    layout->addRow(Say("&New drawing:"), MakeOutput());
    layout->addRow(record);
    layout->addRow(table);
    layout->addRow(openResult);
    return form;
}

QWidget* BatchDialog::MakeOutput() {
    auto* both = new QWidget(form);
    auto* line = new QHBoxLayout(both);
    line->setContentsMargins(0, 0, 0, 0);
    auto* browse = new QToolButton(both);
    browse->setText(QStringLiteral("…"));
    browse->setAccessibleName(Say("Choose a file"));
    connect(browse, &QToolButton::clicked, this, [this] { ChooseOutput(); });
    line->addWidget(output, 1);
    line->addWidget(browse);
    both->setFocusProxy(output);
    return both;
}

void BatchDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    start = buttons->addButton(Plain(Say("&Translate")), QDialogButtonBox::ActionRole);
    start->setObjectName("start");
    start->setDefault(true);
    close = buttons->button(QDialogButtonBox::Close);
    connect(start, &QPushButton::clicked, this, [this] { Start(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    layout()->addWidget(buttons);
    progress->setRange(0, 1);
    progress->setTextVisible(true);
    report->setObjectName("report");
    report->setReadOnly(true);
    report->setAccessibleName(Say("Report"));
}

void BatchDialog::AddLanguages() {
    Guarded(windowTitle(), [this] {
        host::Dictionary dictionary(desktop.Host().DatabaseUrl());
        for (const host::Language& language : dictionary.Languages()) {
            if (!language.inUse) continue;
            from->addItem(language.description, language.key);
            to->addItem(language.description, language.key);
        }
    });
    const QString source = QString::number(desktop.Host().ProjectLanguage(document));
    from->setCurrentIndex(std::max(from->findData(source), 0));
    to->setCurrentIndex(from->currentIndex() == 0 ? 1 : 0);
    start->setEnabled(to->count() > 1);
}

void BatchDialog::ChoosePages() {
    const auto all = host::WholePages(document.Pages().Pages());
    const auto chosen = ui::ChoosePages(this, all, pages.empty() ? ui::NamesOf(all) : pages);
    if (!chosen) return;
    pages = chosen->size() == all.size() ? ui::PageNames() : *chosen;
    pageButton->setText(pages.empty() ? Say("All pages")
                                      : Say("%1 of %2 pages").arg(pages.size()).arg(all.size()));
}

void BatchDialog::ChooseOutput() {
    const QString path = QFileDialog::getSaveFileName(this, Plain(Say("Save &as…")), output->text(),
                                                      Say("Drawings (*.dxf *.DXF *.dwg *.DWG)"));
    if (!path.isEmpty()) output->setText(path);
}

void BatchDialog::SuggestOutput() {
    const QFileInfo file(QString::fromStdString(document.FileName()));
    output->setText(file.path() + "/" + file.completeBaseName() + "_" + to->currentText() + ".dxf");
}

BatchOptions BatchDialog::Options() const {
    BatchOptions options;
    options.drawing = QString::fromStdString(document.FileName());
    options.output = output->text();
    options.database = desktop.Host().DatabaseUrl();
    options.from = from->currentData().toString();
    options.to = to->currentData().toString();
    options.pages = pages;
    options.texts = texts->isChecked();
    options.attributes = attributes->isChecked();
    options.layer0 = layer0->isChecked();
    options.record = record->isChecked();
    options.table = table->isChecked();
    return options;
}

void BatchDialog::Start() {
    const BatchOptions options = Options();
    if (QFileInfo(options.output) == QFileInfo(options.drawing) || options.output.isEmpty()) {
        report->setPlainText(Say("Choose another file than the drawing that is open."));
        return;
    }
    if (QFileInfo::exists(options.output) &&
        QMessageBox::question(this, windowTitle(),
                              Say("%1 is there already. Replace it?").arg(options.output)) !=
            QMessageBox::Yes)
        return;
    report->clear();
    SetRunning(true);
    run.Start(options);
}

void BatchDialog::SetRunning(bool running) {
    form->setEnabled(!running);
    start->setEnabled(!running);
    close->setText(running ? Say("Cancel") : Plain(Say("&Close")));
    progress->setRange(0, running ? 0 : 1);
    progress->setValue(0);
    progress->setFormat(QString());
}

void BatchDialog::End(const BatchOutcome& outcome) {
    SetRunning(false);
    if (!outcome.done) {
        report->setPlainText(outcome.failure.isEmpty() ? Say("Cancelled; nothing was written.")
                                                       : outcome.failure);
        return;
    }
    progress->setValue(1);
    report->setPlainText(ReportText(outcome.report));
    desktop.Log("kelvara " + ArgumentsOf(Options()).mid(0, 6).join(' '));
    result = openResult->isChecked() ? QFileInfo(output->text()).absoluteFilePath() : QString();
}

// While it runs, the button cancels the run; the dialog stays and says what became of it.
void BatchDialog::reject() {
    if (run.IsRunning())
        run.Cancel();
    else
        QDialog::reject();
}

}  // namespace desktop
