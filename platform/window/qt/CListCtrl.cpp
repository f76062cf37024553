// CListCtrl: what is asked of a list, handed to its widget and its rows.
#include "platform/window/CListCtrl.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/text/Conversion.h"
#include "platform/window/qt/ListWidget.h"

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
END_MESSAGE_MAP()

namespace {

// Null for an object without a window. The window of a list object is a list, or the program is
// wrong.
ListWidget* ListOf(const CListCtrl& list) {
    const HWND window = list.GetSafeHwnd();
    if (!window || !window->widget) return nullptr;
    if (window->windowClass.make != ListWindowClass().make)
        throw std::logic_error(
            "CListCtrl: its window is no list; make that control a SysListView32");
    return static_cast<ListWidget*>(window->widget.data());
}

ListWidget* WithRow(const CListCtrl& list, int row) {
    ListWidget* widget = ListOf(list);
    return widget && row >= 0 && row < widget->rows.Count() ? widget : nullptr;
}

ListWidget* WithColumn(const CListCtrl& list, int column) {
    ListWidget* widget = ListOf(list);
    return widget && column >= 0 && column < widget->Columns() ? widget : nullptr;
}

std::u16string_view TextOf(LPCWSTR text) { return text ? text : u""; }

bool TextMatches(std::u16string_view text, const LVFINDINFO& what) {
    const std::u16string_view wanted = what.psz ? what.psz : u"";
    const std::u16string_view compared =
        what.flags & LVFI_PARTIAL ? text.substr(0, wanted.size()) : text;
    return text::CompareNoCase(compared, wanted) == 0;
}

UINT PlaceOf(const ListWidget& list, const QPoint& point) {
    const QRect client = list.viewport()->rect();
    UINT place = 0;
    if (point.y() < list.HeaderHeight()) place |= LVHT_ABOVE;
    if (point.y() > client.bottom()) place |= LVHT_BELOW;
    if (point.x() < 0) place |= LVHT_TOLEFT;
    if (point.x() > client.right()) place |= LVHT_TORIGHT;
    return place ? place : LVHT_NOWHERE;
}

}  // namespace

int CHeaderCtrl::GetItemCount() const {
    const ListWidget* widget = ListOf(list);
    return widget ? widget->Columns() : 0;
}

BOOL CHeaderCtrl::GetItemRect(int column, LPRECT rect) const {
    const ListWidget* widget = WithColumn(list, column);
    if (!widget) return FALSE;
    const int left = widget->Header().sectionPosition(column);
    *rect = CRect(left, 0, left + widget->Header().sectionSize(column), widget->HeaderHeight());
    return TRUE;
}

BOOL CListCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return Create(u"SysListView32", u"", style | WS_CHILD, rect, parent, id);
}

// --- columns ----------------------------------------------------------------------------------

int CListCtrl::InsertColumn(int column, LPCWSTR title, int format, int width, int) {
    ListWidget* widget = ListOf(*this);
    if (!widget || column < 0) return -1;
    column = std::min(column, widget->Columns());
    widget->InsertColumn(column, QString::fromUtf16(title ? title : u""), format, width);
    return column;
}

BOOL CListCtrl::DeleteColumn(int column) {
    ListWidget* widget = WithColumn(*this, column);
    if (widget) widget->EraseColumn(column);
    return widget != nullptr;
}

int CListCtrl::GetColumnWidth(int column) const {
    const ListWidget* widget = WithColumn(*this, column);
    return widget ? widget->Header().sectionSize(column) : 0;
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
    ListWidget* widget = WithColumn(*this, column);
    if (!widget) return FALSE;
    if (width < 0)
        widget->FitColumn(column);
    else
        widget->Header().resizeSection(column, width);
    return TRUE;
}

// --- rows -------------------------------------------------------------------------------------

int CListCtrl::GetItemCount() const {
    const ListWidget* widget = ListOf(*this);
    return widget ? widget->rows.Count() : 0;
}

void CListCtrl::SetItemCount(int count) {
    if (ListWidget* widget = ListOf(*this)) widget->rows.Reserve(count);
}

int CListCtrl::InsertItem(int row, LPCWSTR text) {
    ListWidget* widget = ListOf(*this);
    if (!widget || row < 0) return -1;
    widget->Touch();
    return widget->rows.Insert(row, TextOf(text), 0);
}

BOOL CListCtrl::DeleteItem(int row) {
    ListWidget* widget = WithRow(*this, row);
    if (!widget) return FALSE;
    widget->rows.Erase(row);
    widget->Touch();
    return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
    ListWidget* widget = ListOf(*this);
    if (!widget) return FALSE;
    widget->rows.Clear();
    widget->Touch();
    return TRUE;
}

BOOL CListCtrl::SetItemText(int row, int column, LPCWSTR text) {
    ListWidget* widget = WithRow(*this, row);
    if (!widget || !widget->rows.SetText(row, column, TextOf(text))) return FALSE;
    widget->Redraw(row, row);
    return TRUE;
}

CString CListCtrl::GetItemText(int row, int column) const {
    const ListWidget* widget = WithRow(*this, row);
    return widget ? CString(std::u16string(widget->rows.Text(row, column))) : CString();
}

int CListCtrl::GetItemText(int row, int column, char16_t* text, int room) const {
    if (!text || room <= 0) return 0;
    const std::u16string whole = GetItemText(row, column).Text();
    const size_t length = whole.copy(text, static_cast<size_t>(room) - 1);
    text[length] = u'\0';
    return static_cast<int>(length);
}

BOOL CListCtrl::SetItemData(int row, LPARAM data) {
    ListWidget* widget = WithRow(*this, row);
    if (widget) widget->rows.SetData(row, data);
    return widget != nullptr;
}

LPARAM CListCtrl::GetItemData(int row) const {
    const ListWidget* widget = WithRow(*this, row);
    return widget ? widget->rows.DataOf(row) : 0;
}

int CListCtrl::FindItem(const LVFINDINFO* what, int after) const {
    const ListWidget* widget = ListOf(*this);
    if (!widget) return -1;
    if (what->flags & LVFI_PARAM) return widget->rows.Find(what->lParam, std::max(after, -1));
    if (what->flags & (LVFI_STRING | LVFI_PARTIAL)) {
        for (int row = std::max(after, -1) + 1; row < widget->rows.Count(); ++row)
            if (TextMatches(widget->rows.Text(row, 0), *what)) return row;
    }
    return -1;
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, LPARAM user) {
    ListWidget* widget = ListOf(*this);
    if (!widget || !compare) return FALSE;
    widget->rows.Sort([&](LPARAM a, LPARAM b) { return compare(a, b, user); });
    widget->viewport()->update();
    return TRUE;
}

// --- selection --------------------------------------------------------------------------------

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    ListWidget* widget = ListOf(*this);
    if (!widget || row < -1 || row >= widget->rows.Count()) return FALSE;
    const int first = row < 0 ? 0 : row;  // -1 is every row
    const int last = row < 0 ? widget->rows.Count() - 1 : row;
    for (int each = first; each <= last; ++each)
        widget->SelectableRows().SetState(each, state, mask);
    widget->viewport()->update();
    return TRUE;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    const ListWidget* widget = WithRow(*this, row);
    return widget ? widget->rows.State(row) & mask : 0;
}

int CListCtrl::GetNextItem(int after, int flags) const {
    const ListWidget* widget = ListOf(*this);
    const auto states = static_cast<unsigned>(flags) & (LVIS_FOCUSED | LVIS_SELECTED);
    return widget ? widget->rows.Next(std::max(after, -1), states) : -1;
}

UINT CListCtrl::GetSelectedCount() const {
    const ListWidget* widget = ListOf(*this);
    return widget ? static_cast<UINT>(widget->rows.SelectedCount()) : 0;
}

int CListCtrl::GetSelectionMark() const {
    const ListWidget* widget = ListOf(*this);
    return widget ? widget->rows.Mark() : -1;
}

int CListCtrl::SetSelectionMark(int row) {
    ListWidget* widget = ListOf(*this);
    if (!widget || row >= widget->rows.Count()) return GetSelectionMark();
    return widget->rows.SetMark(row);
}

// --- places -----------------------------------------------------------------------------------

BOOL CListCtrl::EnsureVisible(int row, BOOL partial) {
    ListWidget* widget = WithRow(*this, row);
    if (widget) widget->EnsureVisible(row, partial);
    return widget != nullptr;
}

BOOL CListCtrl::GetItemRect(int row, LPRECT rect, UINT part) const {
    ListWidget* widget = WithRow(*this, row);
    if (!widget) return FALSE;
    widget->Settle();
    const bool label = part == LVIR_LABEL && widget->Columns() > 0;
    QRect place = label ? widget->CellRect(row, 0) : widget->RowRect(row);
    if (part == LVIR_ICON) place.setWidth(0);
    *rect = ToCRect(place);
    return TRUE;
}

BOOL CListCtrl::GetSubItemRect(int row, int column, int part, CRect& rect) const {
    ListWidget* widget = WithRow(*this, row);
    if (!widget || !WithColumn(*this, column)) return FALSE;
    if (column == 0) return GetItemRect(row, rect, static_cast<UINT>(part));
    widget->Settle();
    rect = ToCRect(widget->CellRect(row, column));
    return TRUE;
}

int CListCtrl::SubItemHitTest(LVHITTESTINFO* hit) const {
    ListWidget* widget = ListOf(*this);
    if (!widget) return -1;
    widget->Settle();
    const QPoint point(hit->pt.x, hit->pt.y);
    hit->iItem = widget->RowAt(point);
    hit->iSubItem = hit->iItem >= 0 ? widget->ColumnAt(point.x()) : 0;
    hit->flags = hit->iItem >= 0 ? LVHT_ONITEMLABEL : PlaceOf(*widget, point);
    return hit->iItem;
}

int CListCtrl::HitTest(LVHITTESTINFO* hit) const {
    LVHITTESTINFO cell{hit->pt};
    const int row = SubItemHitTest(&cell);
    const bool counts = cell.iSubItem == 0 || GetExtendedStyle() & LVS_EX_FULLROWSELECT;
    hit->iItem = counts ? row : -1;
    hit->iSubItem = 0;
    hit->flags = counts ? cell.flags : LVHT_NOWHERE;
    return hit->iItem;
}

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
    LVHITTESTINFO hit{point};
    const int row = HitTest(&hit);
    if (flags) *flags = hit.flags;
    return row;
}

BOOL CListCtrl::Scroll(CSize pixels) {
    ListWidget* widget = ListOf(*this);
    if (widget) widget->ScrollBy(pixels.cx, pixels.cy / widget->RowHeight());
    return widget != nullptr;
}

int CListCtrl::GetScrollPos(int bar) const {
    ListWidget* widget = ListOf(*this);
    if (!widget) return 0;
    widget->Settle();
    return bar == SB_HORZ ? widget->horizontalScrollBar()->value() : widget->Top();
}

int CListCtrl::GetTopIndex() const { return GetScrollPos(SB_VERT); }

int CListCtrl::GetCountPerPage() const {
    const ListWidget* widget = ListOf(*this);
    return widget ? widget->PageRows() : 0;
}

BOOL CListCtrl::RedrawItems(int first, int last) {
    ListWidget* widget = ListOf(*this);
    if (widget) widget->Redraw(first, last);
    return widget != nullptr;
}

// --- look -------------------------------------------------------------------------------------

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
    ListWidget* widget = ListOf(*this);
    if (!widget) return 0;
    widget->viewport()->update();
    return std::exchange(widget->extendedStyle, style);
}

DWORD CListCtrl::GetExtendedStyle() const {
    const ListWidget* widget = ListOf(*this);
    return widget ? widget->extendedStyle : 0;
}

// In report view the small images stand before the texts; the other kinds change nothing here.
void CListCtrl::SetImageList(const CImageList* images, int kind) {
    ListWidget* widget = ListOf(*this);
    if (widget && kind == LVSIL_SMALL) widget->SetImageHeight(images ? images->Size().cy : 0);
}
