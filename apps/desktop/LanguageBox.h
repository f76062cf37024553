// The project's language in the status line.
#pragma once

#include <QComboBox>

#include "apps/desktop/Desktop.h"

namespace desktop {

// Shows the language of the active document among those of the dictionary, and sets it.
class LanguageBox : public QComboBox, public DocumentListener {
  public:
    LanguageBox(Desktop& desktop, QWidget* parent);
    ~LanguageBox() override;

    void Opened(host::Document& document) override { Refresh(&document); }
    void Changed(host::Document& document) override { Refresh(&document); }
    void Activated(host::Document* document) override { Refresh(document); }

  private:
    void Refresh(host::Document* document);
    void AddLanguages();
    void Choose();

    Desktop& desktop;
};

}  // namespace desktop
