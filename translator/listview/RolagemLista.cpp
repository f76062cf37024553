// CIListViewEdit: which cell is where, and scrolling.
#include "platform/window/AfxWin.h"
#include "translator/listview/CIListViewEdit.h"

namespace ListView {

CIListViewEdit::Posicao CIListViewEdit::HitTest(CPoint point) {
    LVHITTESTINFO hit;
    hit.pt = point;
    Posicao cell;
    cell.row = CListCtrl::HitTest(&hit);
    if (cell.row < 0) return cell;
    const int columns = GetHeaderCtrl()->GetItemCount();
    for (int column = 0; column < columns && cell.col < 0; ++column) {
        CRect label;
        GetSubItemRect(cell.row, column, LVIR_LABEL, label);
        if (label.left < point.x && point.x < label.right) cell.col = column;
    }
    return cell;
}

CIListViewEdit::Posicao CIListViewEdit::CelulaSobMouse() {
    CPoint mouse;
    GetCursorPos(&mouse);
    ScreenToClient(&mouse);
    CRect client;
    GetClientRect(client);
    return client.PtInRect(mouse) ? HitTest(mouse) : Posicao();
}

void CIListViewEdit::ScrollToColumn(int32_t col, bool partial) {
    CRect column, client;
    if (!GetHeaderCtrl()->GetItemRect(col, column)) return;
    GetClientRect(client);
    column.OffsetRect(-GetScrollPos(SB_HORZ), 0);
    if (partial && column.right > 0 && column.left < client.right) return;
    if (column.left < 0 || column.Width() > client.Width())
        Scroll(CSize(column.left, 0));
    else if (column.right > client.right)
        Scroll(CSize(column.right - client.right, 0));
}

// The view moves below an open editor, so the list takes the focus first and the editor ends.
void CIListViewEdit::OnHScroll(UINT code, UINT position, CScrollBar* bar) {
    SetFocus();
    CListCtrl::OnHScroll(code, position, bar);
}

void CIListViewEdit::OnVScroll(UINT code, UINT position, CScrollBar* bar) {
    SetFocus();
    CListCtrl::OnVScroll(code, position, bar);
}

BOOL CIListViewEdit::OnMouseWheel(UINT flags, short delta, CPoint point) {
    SetFocus();
    return CListCtrl::OnMouseWheel(flags, delta, point);
}

void CIListViewEdit::OnMouseHWheel(UINT flags, short delta, CPoint point) {
    SetFocus();
    CListCtrl::OnMouseHWheel(flags, delta, point);
}

}  // namespace ListView
