// The project's language in the status line.
#pragma once

#include <QComboBox>

#include "apps/desktop/Desktop.h"
#include "host/Dictionary.h"

namespace desktop {

// Shows the language of the active document among those of the dictionary, and sets it. Commands
// may change the dictionary; one that could not be read is not asked again before the next drawing.
class LanguageBox : public QComboBox, public DocumentListener {
  public:
    LanguageBox(Desktop& desktop, QWidget* parent);
    ~LanguageBox() override;

    void Opened(host::Document& document) override;
    void Changed(host::Document& document) override;
    void Activated(host::Document* document) override { Refresh(document); }

  private:
    void ReadLanguages();
    void Refresh(host::Document* document);
    void Choose();

    Desktop& desktop;
    std::vector<host::Language> languages;
    bool readable = true;
};

}  // namespace desktop
