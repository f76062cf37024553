// CComboBox: a field with a list to choose from.
#pragma once

#include "platform/window/CWnd.h"

// An index that does not exist gives CB_ERR. What the program does sends no notification, except
// that ShowDropDown tells of the list opening and closing.
class CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

  public:
    using CWnd::Create;
    // The height is that of the closed field if the rectangle is lower than the field would be.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int AddString(LPCWSTR text);                // the index
    int InsertString(int index, LPCWSTR text);  // the index; -1 inserts at the end
    int DeleteString(int index);                // how many are left
    void ResetContent();
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);
    int GetLBText(int index, CString& text) const;  // the length
    int GetLBTextLen(int index) const;
    int FindString(int after, LPCWSTR prefix) const;
    int FindStringExact(int after, LPCWSTR text) const;  // both without regard to case
    int SelectString(int after, LPCWSTR prefix);
    LPARAM GetItemData(int index) const;
    int SetItemData(int index, LPARAM data);
    void* GetItemDataPtr(int index) const;
    int SetItemDataPtr(int index, void* data);

    void ShowDropDown(BOOL show = TRUE);
    BOOL GetDroppedState() const;
    BOOL LimitText(int characters);
    BOOL SetEditSel(int start, int end);  // as CEdit::SetSel
    DWORD GetEditSel() const;
    int SetItemHeight(int index, UINT height);  // -1 is the closed field
    int SetDroppedWidth(UINT width);

    // Of a style with CBS_OWNERDRAWFIXED, for each entry of the list.
    virtual void DrawItem(LPDRAWITEMSTRUCT item);

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    DECLARE_MESSAGE_MAP()
};
