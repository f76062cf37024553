// CWnd: a window, its messages and what can be asked of it.
#pragma once

#include "platform/text/CObject.h"
#include "platform/window/CDC.h"
#include "platform/window/MessageMap.h"

class CDataExchange;
class CScrollBar;  // bars of their own do not exist here: handlers get null

// A CWnd is tied to at most one window (m_hWnd, null before Create and after WM_NCDESTROY). The
// toolkit's side belongs to the window; the object belongs to whoever made it. An object destroyed
// before its window destroys the window with it.
//
// A message goes to WindowProc, from there through OnCommand, OnNotify or the message map, and at
// last to DefWindowProc. A member On... of this class runs that default handling.
class CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)

  public:
    CWnd() = default;
    ~CWnd() override;

    // The object tied to that window, else one that the window keeps for such callers and that is
    // good until the window goes. Null for null and for what is no window. A native number of the
    // toolkit (winId) is taken too and stands for that widget.
    static CWnd* FromHandle(HWND window);
    static CWnd* FromHandlePermanent(HWND window);  // null unless an object is tied
    static CWnd* GetFocus();
    HWND GetSafeHwnd() const { return m_hWnd; }

    // A child of the class "EDIT", "COMBOBOX", "BUTTON", "STATIC", "LISTBOX", "SysListView32", or
    // a plain window for any other name. False, with nothing left behind, when WM_CREATE answers
    // -1. Throws std::logic_error when the object has a window already.
    virtual BOOL Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect,
                        CWnd* parent, UINT id);
    // Ties this object to a window that exists; false if the window has an object or is none.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();  // unties; the former window
    // Messages WM_DESTROY and, children first, WM_NCDESTROY. False without a window.
    virtual BOOL DestroyWindow();

    // Straight to the window; an exception of the handler reaches the caller.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Through the event loop, in the order posted; dropped when the window goes.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    void SetWindowText(LPCWSTR text);
    void GetWindowText(CString& text) const;
    CString GetWindowText() const;
    int GetWindowTextLength() const;
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const;  // the window's own, good until the next call; never null
    DWORD GetStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);  // false if nothing changed
    int GetDlgCtrlID() const;

    CWnd* GetParent() const;
    CWnd* GetTopLevelParent() const;
    CWnd* GetDlgItem(int id) const;  // among the children; null
    // Siblings stand in the order in which they were made.
    CWnd* GetWindow(UINT command) const;
    CWnd* GetNextWindow(UINT command = GW_HWNDNEXT) const { return GetWindow(command); }
    CWnd* GetNextDlgTabItem(CWnd* from, BOOL previous = FALSE) const;
    BOOL IsChild(const CWnd* window) const;

    CWnd* SetFocus();                       // the window that had it
    BOOL EnableWindow(BOOL enable = TRUE);  // whether it was disabled before
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);  // whether it was visible before
    BOOL IsWindowVisible() const;

    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    // Of the order only wndTop is taken: first among the siblings, as for the keyboard.
    static const CWnd wndTop;
    BOOL SetWindowPos(const CWnd* after, int x, int y, int cx, int cy, UINT flags);
    // On the screen, with the frame where the window system has told of it.
    void GetWindowRect(LPRECT rect) const;
    void GetClientRect(LPRECT rect) const;
    void ScreenToClient(LPRECT rect) const;
    void ScreenToClient(POINT* point) const;
    void ClientToScreen(LPRECT rect) const;
    void ClientToScreen(POINT* point) const;
    void CenterWindow();

    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE);
    void UpdateWindow();
    void SetRedraw(BOOL redraw = TRUE);

    // Controls of a dialog by their id; nothing happens, or 0, without such a control.
    void SetDlgItemText(int id, LPCWSTR text);
    int GetDlgItemText(int id, CString& text) const;
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Runs DoDataExchange; false when it failed.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* exchange);

    // Asked of the focused window and its parents before a key or character is dispatched; TRUE
    // keeps it from going further.
    virtual BOOL PreTranslateMessage(MSG* message);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd = nullptr;

  protected:
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // A notification that the parent offers to this control first; TRUE keeps it from the parent.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}  // the last call of a window's life: delete this is allowed
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    LRESULT Default();  // the default handling of the message in hand

    int OnCreate(LPCREATESTRUCT create);
    void OnDestroy();
    void OnNcDestroy();
    void OnClose();
    void OnPaint();
    void OnSize(UINT type, int cx, int cy);
    void OnSizing(UINT side, LPRECT rect);
    void OnSetFocus(CWnd* old);
    void OnKillFocus(CWnd* next);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKeyUp(UINT key, UINT repeat, UINT flags);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnMouseLeave();
    BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);
    void OnMouseHWheel(UINT flags, short delta, CPoint screen);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    UINT OnGetDlgCode();
    void OnShowWindow(BOOL show, UINT status);
    void OnEnable(BOOL enable);

  private:
    // Offers the call to the message map under that message and, of a notification, code and id.
    bool Dispatch(MessageCall& call, UINT message, UINT code = 0, UINT id = 0);

    friend class WindowHandle;
};
