// CFont: a font as a LOGFONT describes it.
#pragma once

#include "platform/window/WindowTypes.h"

inline constexpr int FW_NORMAL = 400, FW_BOLD = 700;

struct LOGFONT {
    LONG lfHeight = 0;  // below 0 the height of the letters, above 0 that of a line, in pixels
    LONG lfWidth = 0;
    LONG lfWeight = FW_NORMAL;
    uint8_t lfItalic = 0;
    uint8_t lfUnderline = 0;
    uint8_t lfStrikeOut = 0;
    char16_t lfFaceName[32] = {};
};

class CFont {
  public:
    CFont() = default;

    // False for null. The face "MS Shell Dlg" is the desktop's dialog font.
    BOOL CreateFontIndirect(const LOGFONT* description);
    // In tenths of a point at 96 DPI.
    BOOL CreatePointFont(int tenths, LPCWSTR face);
    // The number of bytes given, 0 before the font is made.
    int GetLogFont(LOGFONT* description) const;
    BOOL DeleteObject();
    bool IsMade() const { return made; }

  private:
    LOGFONT logFont;
    bool made = false;
};
