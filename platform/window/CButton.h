// CButton: push buttons, check boxes, radio buttons and group boxes.
#pragma once

#include "platform/window/CWnd.h"

class CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

  public:
    using CWnd::Create;
    BOOL Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int GetCheck() const;
    void SetCheck(int check);

    // Of a style with BS_OWNERDRAW.
    virtual void DrawItem(LPDRAWITEMSTRUCT item);

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    DECLARE_MESSAGE_MAP()
};
