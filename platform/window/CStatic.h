// CStatic: a text that the user cannot change.
#pragma once

#include "platform/window/CWnd.h"

class CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)

  public:
    using CWnd::Create;
    BOOL Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
};
