// Message numbers of Win32, their parameters, and messages registered by name.
#pragma once

#include "platform/win32/Types.h"

using WORD = uint16_t;
using LONG = int32_t;
using WPARAM = uintptr_t;
using LPARAM = intptr_t;
using LRESULT = intptr_t;

class WindowHandle;  // a window; what stands behind it is the window layer's own
using HWND = WindowHandle*;

constexpr WORD LOWORD(uintptr_t value) { return static_cast<WORD>(value); }
constexpr WORD HIWORD(uintptr_t value) { return static_cast<WORD>(value >> 16); }
constexpr DWORD MAKELONG(uintptr_t low, uintptr_t high) {
    return static_cast<DWORD>((low & 0xFFFF) | ((high & 0xFFFF) << 16));
}
constexpr WPARAM MAKEWPARAM(uintptr_t low, uintptr_t high) { return MAKELONG(low, high); }
constexpr LPARAM MAKELPARAM(uintptr_t low, uintptr_t high) {
    return static_cast<LPARAM>(MAKELONG(low, high));
}
// The signed coordinates of a mouse message.
constexpr int GET_X_LPARAM(LPARAM value) { return static_cast<int16_t>(LOWORD(value)); }
constexpr int GET_Y_LPARAM(LPARAM value) { return static_cast<int16_t>(HIWORD(value)); }

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_NEXTDLGCTL = 0x0028;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_MOUSEHWHEEL = 0x020E;
inline constexpr UINT WM_SIZING = 0x0214;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_DPICHANGED = 0x02E0;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

// A number from 0xC000 to 0xFFFF, the same for the same name until the process ends; 0 with
// GetLastError for an empty name or when all the numbers are taken.
UINT RegisterWindowMessageW(const char16_t* name);
