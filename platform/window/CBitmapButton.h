// CBitmapButton: a push button that shows a small picture.
#pragma once

#include <span>

#include "platform/window/CButton.h"

// A picture as rows of letters: "#" the colour of button text, r, g, b, y, m, c pure colours,
// anything else nothing. All rows have the same length.
using ButtonPicture = std::span<const char* const>;

class CBitmapButton : public CButton {
    DECLARE_DYNAMIC(CBitmapButton)

  public:
    // The picture is drawn in the middle of the button's face; it must outlive the button.
    void LoadBitmaps(ButtonPicture rows);
    void DrawItem(LPDRAWITEMSTRUCT item) override;

  private:
    ButtonPicture picture;
};
