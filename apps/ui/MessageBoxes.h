// Message boxes on the screen.
#pragma once

#include "platform/kernel/MxMessageBox.h"

namespace ui {

// Texts are shown as they are, never taken for markup. Escape and the close box answer Cancel, else
// No, else the only button. Without a default button the toolkit chooses one.
class MessageBoxes : public CMxMessageBoxService {
  public:
    int Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text, int buttons,
             int defaultButton) override;
};

}  // namespace ui
