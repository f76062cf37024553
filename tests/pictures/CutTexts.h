// Which texts of a window do not fit their controls.
#pragma once

#include <QStringList>

class QWidget;

// The texts of labels, buttons, check boxes and group boxes that are wider, or in a wrapped label
// higher, than the room that the control has for them.
QStringList CutTexts(const QWidget& window);
