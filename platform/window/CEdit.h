// CEdit: a field of one line of text.
#pragma once

#include "platform/window/CWnd.h"

class CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

  public:
    using CWnd::Create;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // From start up to end; (0, -1) is all the text, a start of -1 nothing. The caret stands at end
    // and comes into view.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void GetSel(int& start, int& end) const;
    void ReplaceSel(LPCWSTR text, BOOL canUndo = FALSE);
    // Limits what the user enters, not SetWindowText; 0 is no limit.
    void LimitText(int characters = 0);
    void SetLimitText(UINT characters) { LimitText(static_cast<int>(characters)); }
    UINT GetLimitText() const;
    BOOL SetReadOnly(BOOL readOnly = TRUE);

  protected:
    DECLARE_MESSAGE_MAP()
};
