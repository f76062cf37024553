// Functions about windows, keys and the thread that belong to no class.
#pragma once

#include "platform/window/CWnd.h"

BOOL IsWindow(HWND window);  // also for one that is long gone
LRESULT SendMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
BOOL PostMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// For the key message that PreTranslateMessage has in hand: the character that it stands for
// follows as WM_CHAR once the key has been handled; then the message itself, to its window.
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessage(const MSG* message);

// Below 0 while VK_SHIFT, VK_CONTROL or VK_MENU was down at the last key or mouse message.
short GetKeyState(int key);

// Cursors: shown over the window under the mouse until the mouse moves on.
using HCURSOR = const struct CursorShape*;
inline constexpr int IDC_ARROW = 32512, IDC_IBEAM = 32513, IDC_WAIT = 32514, IDC_HAND = 32649;
HCURSOR LoadCursor(const void* module, int shape);
HCURSOR SetCursor(HCURSOR cursor);  // the former one

BOOL GetCursorPos(POINT* screen);

// The thread of the windows; the running program sets its main window, null before.
class CWinThread {
  public:
    CWnd* m_pMainWnd = nullptr;
    CWnd* GetMainWnd() const { return m_pMainWnd; }
};
CWinThread* AfxGetThread();
