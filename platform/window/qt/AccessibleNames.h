// Names of controls for those who cannot see the labels, and labels that lead to their controls.
#pragma once

#include <QLabel>

#include "platform/window/qt/WindowHandle.h"

// Ties each label to the control under it or right of it: its mnemonic leads there, and its text is
// the control's accessible name. A control without a label and a text is named by its window.
void NameControls(WindowHandle& window);

// A label's text with its "&". The toolkit shows a "&" as it is where a label leads nowhere.
void SetTextOfLabel(QLabel& label, const QString& text);
QString TextOfLabel(const QLabel& label);
