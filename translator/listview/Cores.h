// Colours of cells.
#pragma once

#include "platform/window/CWnd.h"
#include "translator/cad/TQString.h"

namespace ListView {

// The colour of a number as text: an indexed colour up to 256, above that red, green and blue in
// one number. Text that is no number is 0, and so is a negative one.
COLORREF ToCor(const TQString& text);

COLORREF Complemento(COLORREF color);

// Half way between the text and the background of windows, so that it is seen on dark desktops too.
COLORREF CorCinza();

// The text colour, or black or white where it could not be read on that background, as happens
// with a light text colour of a dark desktop on a fixed light background.
COLORREF CorLegivel(COLORREF text, COLORREF background);

}  // namespace ListView
