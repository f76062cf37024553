// What all cell editors have in common: the mark of their kind, navigation, and their end.
#pragma once

#include <cstdint>

#include "platform/window/CWnd.h"
#include "translator/cad/TQString.h"

namespace ListView {

class CIListViewEditItem {
  protected:
    ~CIListViewEditItem() = default;
};

inline constexpr UINT kIdCombo = 1020;
inline constexpr UINT kIdEdit = 1021;
inline constexpr UINT kIdBotao = 1022;
inline constexpr DWORD kEstiloEdit = 0x50800080;  // visible child, border, scrolls horizontally
inline constexpr int kLarguraBotao = 20;

// Tab, Enter, Escape, Up and Down in an editor of that cell: the edit goes on in another row, or
// the focus to the list or its parent, which also get the key. True if the key was taken; the
// editor has then lost the focus and is gone. Codes of keys and of characters are not told apart:
// 38 and 40 are Up and Down as well as "&" and "(", and only Shift says that it is a character.
bool NavegarCelula(UINT key, int32_t row, int32_t col, CWnd* list);

// The message is that of a key that is the editor's own, before the dialog around it sees it: Tab,
// Enter, Escape, Up, Down, Delete.
bool TeclaDeEditor(const MSG& message);
bool TeclaVertical(const MSG& message);  // Up, Down

// Translates and dispatches at once; TRUE, as PreTranslateMessage answers.
BOOL DespacharTecla(const MSG& message);

// At WM_CREATE: the font of the list.
void TomarFonteDaLista(CWnd& editor);

TQString TextoDe(const CWnd& window);

// Destroys an editor unless what it sent has done so already.
void EncerrarEditor(HWND editor);

}  // namespace ListView
