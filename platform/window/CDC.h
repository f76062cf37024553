// CDC: drawing on a window, and measuring text in its font.
#pragma once

#include <memory>

#include "platform/window/CBrush.h"
#include "platform/window/CFont.h"

class CWnd;

inline constexpr int TRANSPARENT = 1, OPAQUE = 2;
inline constexpr UINT DT_LEFT = 0, DT_CENTER = 1, DT_RIGHT = 2, DT_VCENTER = 4, DT_BOTTOM = 8,
                      DT_WORDBREAK = 0x10, DT_SINGLELINE = 0x20, DT_CALCRECT = 0x400,
                      DT_NOPREFIX = 0x800, DT_END_ELLIPSIS = 0x8000;

class CDC {
  public:
    CDC() = default;
    explicit CDC(HDC context) : m_hDC(context) {}
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    virtual ~CDC() = default;

    // The object of that context, good as long as the context; null for null.
    static CDC* FromHandle(HDC context);
    HDC GetSafeHdc() const { return m_hDC; }

    // The former font. The font given must live until another is selected or the drawing ends.
    CFont* SelectObject(CFont* font);
    void SelectObject(const CPen* pen);
    CFont* GetCurrentFont() const;

    // The former colour or mode. Text is black on white and opaque at first, as on Windows.
    COLORREF SetTextColor(COLORREF color);
    COLORREF GetTextColor() const;
    COLORREF SetBkColor(COLORREF color);
    COLORREF GetBkColor() const;
    int SetBkMode(int mode);

    // Both also set the background colour, as on Windows.
    void FillSolidRect(const RECT& rect, COLORREF color);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    void FillRect(LPCRECT rect, const CBrush* brush);
    void FrameRect(LPCRECT rect, const CBrush* brush);
    void DrawFocusRect(LPCRECT rect);
    // Draws with the selected pen, 1 pixel in the text colour when none was selected.
    void MoveTo(int x, int y);
    void LineTo(int x, int y);

    void TextOut(int x, int y, const CString& text);
    // The height of the text. DT_CALCRECT changes the rectangle instead of drawing.
    int DrawText(const CString& text, LPRECT rect, UINT format);
    CSize GetTextExtent(const CString& text) const;

    int GetDeviceCaps(int index) const;  // of LOGPIXELSX and LOGPIXELSY; 0 for any other

    HDC m_hDC = nullptr;
};

// The drawing of a WM_PAINT handler; made and gone within it.
class CPaintDC : public CDC {
  public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

  private:
    std::unique_ptr<DeviceContext, void (*)(DeviceContext*)> own;
};

// Measures in a window's font; what is drawn on it outside WM_PAINT is not seen.
class CClientDC : public CDC {
  public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

  private:
    std::unique_ptr<DeviceContext, void (*)(DeviceContext*)> own;
};

// The device's DPI: 96, since the toolkit scales for the screen, until set, as a test does.
int GetDeviceCaps(HDC context, int index);
void SetDeviceDpi(int dpi);
