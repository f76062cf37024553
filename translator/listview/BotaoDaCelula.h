// The buttons at the right end of a cell's editor: place, picture, and the time of their dialogs.
#pragma once

#include <array>
#include <utility>

#include "platform/window/AfxWin.h"
#include "platform/window/CBitmapButton.h"

namespace ListView {

inline constexpr std::array kImagemPasta = {
    "  ###      ", " #   ####  ", " #      #  ", " # #########", " # #       #",
};
inline constexpr std::array kImagemCores = {
    "rrrr yyyy", "rrrr yyyy", "rrrr yyyy", "rrrr yyyy", "         ",
    "gggg bbbb", "gggg bbbb", "gggg bbbb", "gggg bbbb",
};

// The field's part of the cell and the button's.
std::pair<CRect, CRect> DividirCelula(const CRect& cell);

void CriarBotao(CBitmapButton& button, ButtonPicture picture, const CRect& rect, CWnd* list);

// F4 in the field presses the button; false for any other message. The editor may be gone after.
bool ApertarBotao(const MSG& message, CBitmapButton* button);

// Sets a flag of a window's object and clears it, unless the window has gone meanwhile.
class Ocupado {
  public:
    Ocupado(bool& flag, HWND owner) : flag(flag), owner(owner) { flag = true; }
    Ocupado(const Ocupado&) = delete;
    ~Ocupado() {
        if (IsWindow(owner)) flag = false;
    }

  private:
    bool& flag;
    HWND owner;
};

}  // namespace ListView
