// The form for translating a saved drawing in batch, its progress and its certificate.
#pragma once

#include <QDialog>

#include "apps/desktop/Batch.h"
#include "apps/desktop/Desktop.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace desktop {

// The document is saved already. Mixed pages are read too.
class BatchDialog : public QDialog {
  public:
    BatchDialog(QWidget* parent, Desktop& desktop, host::Document& document);

    const QString& Result() const { return result; }  // to be opened; empty for nothing

  protected:
    void reject() override;

  private:
    QWidget* MakeForm();
    QWidget* MakeOutput();
    void MakeButtons();
    void AddLanguages();
    void ChoosePages();
    void ChooseOutput();
    void SuggestOutput();
    void Start();
    void End(const BatchOutcome& outcome);
    void SetRunning(bool running);
    BatchOptions Options() const;

    Desktop& desktop;
    host::Document& document;
    BatchRun run;
    ui::PageNames pages;
    QString result;

    QWidget* form;
    QComboBox *from, *to;
    QCheckBox *texts, *attributes, *record, *openResult;
    QPushButton *pageButton, *start, *close;
    QLineEdit* output;
    QProgressBar* progress;
    QPlainTextEdit* report;
};

}  // namespace desktop
