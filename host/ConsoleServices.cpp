// Messages and answers without a window.
#include "host/ConsoleServices.h"

#include <cstdio>

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

}  // namespace host
