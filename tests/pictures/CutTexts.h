// Which texts of a window do not fit their controls.
#pragma once

#include <QStringList>

class QFont;
class QWidget;

// The texts of labels, buttons, check boxes and group boxes that are wider or higher than the room
// that the control has for them, or hold a letter that no font has.
QStringList CutTexts(const QWidget& window);

// Whether the font, or one that stands in for it, has every letter of a text.
bool HasLetters(const QFont& font, QString text);
