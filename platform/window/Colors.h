// Colours: COLORREF values and the colours of the user's desktop.
#pragma once

#include "platform/win32/Messages.h"

using COLORREF = DWORD;  // 0x00BBGGRR

constexpr COLORREF RGB(UINT red, UINT green, UINT blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}
constexpr UINT GetRValue(COLORREF color) { return color & 0xFF; }
constexpr UINT GetGValue(COLORREF color) { return color >> 8 & 0xFF; }
constexpr UINT GetBValue(COLORREF color) { return color >> 16 & 0xFF; }

inline constexpr COLORREF CLR_NONE = 0xFFFFFFFF;
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000;

inline constexpr int COLOR_WINDOW = 5, COLOR_MENUTEXT = 7, COLOR_WINDOWTEXT = 8,
                     COLOR_HIGHLIGHT = 13, COLOR_HIGHLIGHTTEXT = 14, COLOR_BTNFACE = 15,
                     COLOR_3DFACE = 15, COLOR_BTNSHADOW = 16, COLOR_3DSHADOW = 16,
                     COLOR_GRAYTEXT = 17, COLOR_BTNTEXT = 18, COLOR_3DLIGHT = 22,
                     COLOR_INFOTEXT = 23, COLOR_INFOBK = 24, COLOR_HOTLIGHT = 26;

// The colour of that use in the present palette of the application; black for an unknown index.
COLORREF GetSysColor(int index);
