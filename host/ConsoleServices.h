// The services of a program without windows.
#pragma once

#include "platform/kernel/MxApplication.h"
#include "platform/kernel/MxColorPicker.h"
#include "platform/kernel/MxMessageBox.h"

namespace host {

// Messages go to stderr. A question gets its default button, and without one the most careful of
// the offered answers: Cancel, then No, then Yes, then Ok.
class ConsoleMessageBoxes : public CMxMessageBoxService {
  public:
    int Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text, int buttons,
             int defaultButton) override;
};

// Nobody is there to choose: says so on stderr, and every choice is cancelled.
class ConsoleColorPicker : public CMxColorPicker {
  public:
    int PickColor(WindowHandle* owner, int index, int* chosen) override;
};

class NoMainWindow : public CMxMainWindowService {
  public:
    QWidget* GetMainWidget() override { return nullptr; }
};

}  // namespace host
