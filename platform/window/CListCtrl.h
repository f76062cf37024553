// CListCtrl: a list in report view, rows of cells below a header.
#pragma once

#include "platform/window/CImageList.h"
#include "platform/window/CWnd.h"
#include "platform/window/ListMessages.h"

class CListCtrl;

// The titles above the columns of a list.
class CHeaderCtrl {
  public:
    explicit CHeaderCtrl(const CListCtrl& list) : list(list) {}
    int GetItemCount() const;
    // In pixels of the header, whose left edge moves with the columns: not scrolled.
    BOOL GetItemRect(int column, LPRECT rect) const;

  private:
    const CListCtrl& list;
};

// Rows and columns count from 0. Numbers out of range, and an object without a window, change
// nothing and answer FALSE, -1, 0 or an empty text. The client area holds the header too: the first
// row begins below it. Scrolling goes by rows downwards and by pixels to the side.
//
// Notifications, offered to the list itself first: NM_CUSTOMDRAW, LVN_COLUMNCLICK, LVN_HOTTRACK,
// and with LVS_EDITLABELS LVN_BEGINLABELEDIT. The list has no editor of its own: what a cell is
// edited with is the owner's, as a child window of the list.
class CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // The column's number. Beyond the last column it is appended. A width of -1 fits the title.
    int InsertColumn(int column, LPCWSTR title, int format = LVCFMT_LEFT, int width = -1,
                     int subItem = -1);
    BOOL DeleteColumn(int column);
    int GetColumnWidth(int column) const;
    BOOL SetColumnWidth(int column, int width);
    CHeaderCtrl* GetHeaderCtrl() { return &header; }

    int GetItemCount() const;
    void SetItemCount(int count);           // so many rows are to come: no row is made
    int InsertItem(int row, LPCWSTR text);  // the row's number
    BOOL DeleteItem(int row);
    BOOL DeleteAllItems();
    // Column 0 takes a text even before there is a column.
    BOOL SetItemText(int row, int column, LPCWSTR text);
    CString GetItemText(int row, int column) const;
    int GetItemText(int row, int column, char16_t* text, int room) const;  // the length written
    BOOL SetItemData(int row, LPARAM data);
    LPARAM GetItemData(int row) const;
    // The first row behind `after`. Item data are found by a look-up, texts by walking the rows.
    int FindItem(const LVFINDINFO* what, int after = -1) const;
    // Stable; selection, focus and mark go with their rows. While it runs the rows stand as before
    // and can be read and found.
    BOOL SortItems(PFNLVCOMPARE compare, LPARAM user);

    BOOL SetItemState(int row, UINT state, UINT mask);
    UINT GetItemState(int row, UINT mask) const;
    int GetNextItem(int after, int flags) const;
    UINT GetSelectedCount() const;
    // Where the selection began: the row clicked last, or given focus and selection last; -1 after
    // a click beside the rows, and when that row is deleted.
    int GetSelectionMark() const;
    int SetSelectionMark(int row);  // the former mark

    BOOL EnsureVisible(int row, BOOL partial);
    BOOL GetItemRect(int row, LPRECT rect, UINT part) const;
    // LVIR_BOUNDS of column 0 is the whole row, as on Windows; LVIR_LABEL is the cell.
    BOOL GetSubItemRect(int row, int column, int part, CRect& rect) const;
    // The row at the point. With LVS_EX_FULLROWSELECT any of its cells counts, else column 0 only.
    int HitTest(LVHITTESTINFO* hit) const;
    int HitTest(CPoint point, UINT* flags = nullptr) const;
    int SubItemHitTest(LVHITTESTINFO* hit) const;  // fills iSubItem too, 0 beside the rows
    BOOL Scroll(CSize pixels);                     // down in whole rows
    int GetScrollPos(int bar) const;               // SB_HORZ in pixels, SB_VERT in rows
    int GetTopIndex() const;
    int GetCountPerPage() const;
    BOOL RedrawItems(int first, int last);

    DWORD SetExtendedStyle(DWORD style);  // the former style
    DWORD GetExtendedStyle() const;
    // Only its height counts, and is taken here: the object need not live on. Null takes it away.
    void SetImageList(const CImageList* images, int kind);

  protected:
    DECLARE_MESSAGE_MAP()

  private:
    CHeaderCtrl header{*this};
};
