// The buttons at the right end of a cell's editor.
#include "translator/listview/BotaoDaCelula.h"

#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

std::pair<CRect, CRect> DividirCelula(const CRect& cell) {
    CRect field = cell, button = cell;
    field.right -= kLarguraBotao;
    button.left = field.right;
    return {field, button};
}

// No tab stop: Tab in the field leads to another cell.
void CriarBotao(CBitmapButton& button, ButtonPicture picture, const CRect& rect, CWnd* list) {
    button.LoadBitmaps(picture);
    button.Create(u"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, rect, list, kIdBotao);
}

// The button takes the focus as at a click, which the field knows not to be its end.
bool ApertarBotao(const MSG& message, CBitmapButton* button) {
    if (message.message != WM_KEYDOWN || message.wParam != VK_F4 || !button) return false;
    button->SetFocus();
    button->SendMessage(BM_CLICK);
    return true;
}

}  // namespace ListView
