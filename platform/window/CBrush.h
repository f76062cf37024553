// CBrush: a colour to fill with.
#pragma once

#include "platform/window/Colors.h"
#include "platform/window/WindowTypes.h"

class CBrush {
  public:
    CBrush() = default;
    explicit CBrush(COLORREF color) : color(color) {}
    BOOL CreateSolidBrush(COLORREF solid) {
        color = solid;
        return TRUE;
    }
    BOOL CreateSysColorBrush(int index) { return CreateSolidBrush(GetSysColor(index)); }
    BOOL DeleteObject() {
        color = CLR_NONE;
        return TRUE;
    }
    COLORREF Color() const { return color; }  // CLR_NONE before it is made

  private:
    COLORREF color = CLR_NONE;
};

class CPen {
  public:
    CPen(int /*style*/, int width, COLORREF color) : width(width), color(color) {}
    int Width() const { return width; }
    COLORREF Color() const { return color; }

  private:
    int width;
    COLORREF color;
};

inline constexpr int PS_SOLID = 0;
