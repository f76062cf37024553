// Messages and answers without a window.
#include "host/ConsoleServices.h"

#include <cstdio>

#include "platform/kernel/MxLispEngine.h"

namespace host {

int ConsoleMessageBoxes::Show(Kind, QWidget*, const OdString& title, const CMxString& text,
                              int buttons, int defaultButton) {
    const std::string line = title.narrowText() + ": " + text.ansi_str() + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    if (defaultButton) return defaultButton;
    for (int button : {kButtonCancel, kButtonNo, kButtonYes}) {
        if (buttons & button) return button;
    }
    return kButtonOk;
}

int ConsoleColorPicker::PickColor(WindowHandle*, int index, int*) {
    std::fprintf(stderr, "colour %d stays: there is no window to choose another one in\n", index);
    return kLispCancelled;
}

}  // namespace host
