// Handles of windows and devices, and the records that messages carry.
#pragma once

#include "platform/text/CString.h"
#include "platform/window/Geometry.h"

struct DeviceContext;  // something to draw on
using HDC = DeviceContext*;
using LPCWSTR = const char16_t*;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT idFrom = 0;
    UINT code = 0;
};

struct CREATESTRUCT {
    LPCWSTR lpszName = nullptr;
    DWORD style = 0;
    int x = 0, y = 0, cx = 0, cy = 0;
    HWND hwndParent = nullptr;
};
using LPCREATESTRUCT = CREATESTRUCT*;

// An item of an owner-drawn control: hDC's origin is that of rcItem's coordinates.
struct DRAWITEMSTRUCT {
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;  // all bits set for none
    UINT itemAction = 0;
    UINT itemState = 0;  // ODS_...
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    RECT rcItem;
    LPARAM itemData = 0;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

inline constexpr UINT ODT_COMBOBOX = 3, ODT_BUTTON = 4;
inline constexpr UINT ODS_SELECTED = 0x0001, ODS_DISABLED = 0x0004, ODS_FOCUS = 0x0010;
