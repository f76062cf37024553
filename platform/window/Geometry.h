// Points, sizes and rectangles in pixels, with the member names of MFC.
#pragma once

#include <algorithm>

#include "platform/win32/Messages.h"

struct POINT {
    LONG x = 0, y = 0;
};

struct SIZE {
    LONG cx = 0, cy = 0;
};

// right and bottom lie just outside.
struct RECT {
    LONG left = 0, top = 0, right = 0, bottom = 0;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct CPoint : POINT {
    CPoint() = default;
    CPoint(int px, int py) { x = px, y = py; }
    CPoint(const POINT& point) : POINT(point) {}
    void Offset(int dx, int dy) { x += dx, y += dy; }
    friend bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }
};

struct CSize : SIZE {
    CSize() = default;
    CSize(int width, int height) { cx = width, cy = height; }
    CSize(const SIZE& size) : SIZE(size) {}
    friend bool operator==(const CSize& a, const CSize& b) { return a.cx == b.cx && a.cy == b.cy; }
};

struct CRect : RECT {
    CRect() = default;
    CRect(int l, int t, int r, int b) { SetRect(l, t, r, b); }
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(const POINT& corner, const SIZE& size)
        : CRect(corner.x, corner.y, corner.x + size.cx, corner.y + size.cy) {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool IsRectNull() const { return !left && !top && !right && !bottom; }
    bool PtInRect(const POINT& p) const {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }
    void SetRect(int l, int t, int r, int b) { left = l, top = t, right = r, bottom = b; }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void InflateRect(int dx, int dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void OffsetRect(int dx, int dy) { SetRect(left + dx, top + dy, right + dx, bottom + dy); }
    // Whether anything is common; the rectangle becomes that, or empty.
    bool IntersectRect(const RECT& a, const RECT& b) {
        SetRect(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                std::min(a.bottom, b.bottom));
        if (IsRectEmpty()) SetRectEmpty();
        return !IsRectEmpty();
    }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    friend bool operator==(const CRect& a, const CRect& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
};
