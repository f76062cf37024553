// CListBox: a list of texts of which one can be selected.
#pragma once

#include "platform/window/CWnd.h"

// An index that does not exist gives LB_ERR. What the program does sends no notification.
class CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int AddString(LPCWSTR text);
    int InsertString(int index, LPCWSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);  // -1 takes the selection away
    int GetText(int index, CString& text) const;
    LPARAM GetItemData(int index) const;
    int SetItemData(int index, LPARAM data);
};
