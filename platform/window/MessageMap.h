// Message maps: static tables that hand messages to members of a window class.
//
//     class CMyDialog : public CDialog {
//         afx_msg void OnSize(UINT type, int cx, int cy);
//         afx_msg void OnRead();
//         DECLARE_MESSAGE_MAP()
//     };
//     BEGIN_MESSAGE_MAP(CMyDialog, CDialog)
//     ON_WM_SIZE()
//     ON_BN_CLICKED(230, &CMyDialog::OnRead)
//     END_MESSAGE_MAP()
//
// A handler's type is checked when the table is compiled. A window class asks its own table first,
// then those of its bases.
#pragma once

#include "platform/window/Styles.h"
#include "platform/window/WindowTypes.h"

class CWnd;

// A message on its way through the tables; the handler's answer goes into result.
struct MessageCall {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
};

struct AFX_MSGMAP_ENTRY {
    UINT message = 0;
    UINT code = 0;  // of a notification
    UINT firstId = 0, lastId = 0;
    const UINT* registered = nullptr;  // where the number of a registered message stands
    // False for a handler that lets the message go on.
    bool (*invoke)(CWnd& window, MessageCall& call) = nullptr;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null in CWnd
    const AFX_MSGMAP_ENTRY* lpEntries;     // ends with an entry without invoke
};

// Added to WM_COMMAND and WM_NOTIFY when the parent offers a notification to its sender first.
inline constexpr UINT WM_REFLECT_BASE = 0xBC00;

#define afx_msg

#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                        \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                 \
        using ThisClass [[maybe_unused]] = theClass;                                  \
        constexpr auto baseMap = [] { return baseClass::GetThisMessageMap(); };       \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                             \
    {}                                                \
    }                                                 \
    ;                                                 \
    static const AFX_MSGMAP map = {baseMap, entries}; \
    return &map;                                      \
    }

// The functions behind the tables: each takes the message apart for one form of handler.
namespace afx {
template <class T>
T& As(CWnd& window) {
    return static_cast<T&>(window);
}
template <class T, auto M>
bool Command(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool CommandId(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(UINT{LOWORD(c.wParam)});
    return true;
}
template <class T, auto M>
bool Notify(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(reinterpret_cast<NMHDR*>(c.lParam), &c.result);
    return true;
}
template <class T, auto M>
bool NotifyEx(CWnd& w, MessageCall& c) {
    return (As<T>(w).*M)(reinterpret_cast<NMHDR*>(c.lParam), &c.result);
}
template <class T, auto M>
bool Message(CWnd& w, MessageCall& c) {
    c.result = (As<T>(w).*M)(c.wParam, c.lParam);
    return true;
}
template <class T, auto M>
bool Create(CWnd& w, MessageCall& c) {
    c.result = (As<T>(w).*M)(reinterpret_cast<LPCREATESTRUCT>(c.lParam));
    return true;
}
template <class T, auto M>
bool Destroy(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool NcDestroy(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool Close(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool Paint(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool Size(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), LOWORD(c.lParam), HIWORD(c.lParam));
    return true;
}
template <class T, auto M>
bool Sizing(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), reinterpret_cast<LPRECT>(c.lParam));
    c.result = TRUE;
    return true;
}
CWnd* WindowIn(WPARAM handle);
template <class T, auto M>
bool SetFocus(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(WindowIn(c.wParam));
    return true;
}
template <class T, auto M>
bool KillFocus(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(WindowIn(c.wParam));
    return true;
}
template <class T, auto M>
bool Char(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), LOWORD(c.lParam), HIWORD(c.lParam));
    return true;
}
template <class T, auto M>
bool KeyDown(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), LOWORD(c.lParam), HIWORD(c.lParam));
    return true;
}
template <class T, auto M>
bool KeyUp(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), LOWORD(c.lParam), HIWORD(c.lParam));
    return true;
}
inline CPoint PointIn(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }
template <class T, auto M>
bool Mouse(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(static_cast<UINT>(c.wParam), PointIn(c.lParam));
    return true;
}
template <class T, auto M>
bool MouseLeave(CWnd& w, MessageCall&) {
    (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool MouseWheel(CWnd& w, MessageCall& c) {
    c.result =
        (As<T>(w).*M)(LOWORD(c.wParam), static_cast<int16_t>(HIWORD(c.wParam)), PointIn(c.lParam));
    return true;
}
template <class T, auto M>
bool MouseHWheel(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(LOWORD(c.wParam), static_cast<int16_t>(HIWORD(c.wParam)), PointIn(c.lParam));
    return true;
}
template <class T, auto M>
bool HScroll(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(LOWORD(c.wParam), HIWORD(c.wParam), nullptr);
    return true;
}
template <class T, auto M>
bool VScroll(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(LOWORD(c.wParam), HIWORD(c.wParam), nullptr);
    return true;
}
template <class T, auto M>
bool GetDlgCode(CWnd& w, MessageCall& c) {
    c.result = (As<T>(w).*M)();
    return true;
}
template <class T, auto M>
bool ShowWindow(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(c.wParam != 0, static_cast<UINT>(c.lParam));
    return true;
}
template <class T, auto M>
bool Enable(CWnd& w, MessageCall& c) {
    (As<T>(w).*M)(c.wParam != 0);
    return true;
}

constexpr AFX_MSGMAP_ENTRY Entry(UINT message, bool (*invoke)(CWnd&, MessageCall&)) {
    return {message, 0, 0, 0, nullptr, invoke};
}
constexpr AFX_MSGMAP_ENTRY Control(UINT message, UINT code, UINT first, UINT last,
                                   bool (*invoke)(CWnd&, MessageCall&)) {
    return {message, code, first, last, nullptr, invoke};
}
}  // namespace afx

#define ON_WM_CREATE() afx::Entry(WM_CREATE, &afx::Create<ThisClass, &ThisClass::OnCreate>),
#define ON_WM_DESTROY() afx::Entry(WM_DESTROY, &afx::Destroy<ThisClass, &ThisClass::OnDestroy>),
#define ON_WM_NCDESTROY() \
    afx::Entry(WM_NCDESTROY, &afx::NcDestroy<ThisClass, &ThisClass::OnNcDestroy>),
#define ON_WM_CLOSE() afx::Entry(WM_CLOSE, &afx::Close<ThisClass, &ThisClass::OnClose>),
#define ON_WM_PAINT() afx::Entry(WM_PAINT, &afx::Paint<ThisClass, &ThisClass::OnPaint>),
#define ON_WM_SIZE() afx::Entry(WM_SIZE, &afx::Size<ThisClass, &ThisClass::OnSize>),
#define ON_WM_SIZING() afx::Entry(WM_SIZING, &afx::Sizing<ThisClass, &ThisClass::OnSizing>),
#define ON_WM_SETFOCUS() afx::Entry(WM_SETFOCUS, &afx::SetFocus<ThisClass, &ThisClass::OnSetFocus>),
#define ON_WM_KILLFOCUS() \
    afx::Entry(WM_KILLFOCUS, &afx::KillFocus<ThisClass, &ThisClass::OnKillFocus>),
#define ON_WM_CHAR() afx::Entry(WM_CHAR, &afx::Char<ThisClass, &ThisClass::OnChar>),
#define ON_WM_KEYDOWN() afx::Entry(WM_KEYDOWN, &afx::KeyDown<ThisClass, &ThisClass::OnKeyDown>),
#define ON_WM_KEYUP() afx::Entry(WM_KEYUP, &afx::KeyUp<ThisClass, &ThisClass::OnKeyUp>),
#define ON_WM_MOUSEMOVE() afx::Entry(WM_MOUSEMOVE, &afx::Mouse<ThisClass, &ThisClass::OnMouseMove>),
#define ON_WM_LBUTTONDOWN() \
    afx::Entry(WM_LBUTTONDOWN, &afx::Mouse<ThisClass, &ThisClass::OnLButtonDown>),
#define ON_WM_LBUTTONUP() afx::Entry(WM_LBUTTONUP, &afx::Mouse<ThisClass, &ThisClass::OnLButtonUp>),
#define ON_WM_LBUTTONDBLCLK() \
    afx::Entry(WM_LBUTTONDBLCLK, &afx::Mouse<ThisClass, &ThisClass::OnLButtonDblClk>),
#define ON_WM_RBUTTONDOWN() \
    afx::Entry(WM_RBUTTONDOWN, &afx::Mouse<ThisClass, &ThisClass::OnRButtonDown>),
#define ON_WM_MOUSELEAVE() \
    afx::Entry(WM_MOUSELEAVE, &afx::MouseLeave<ThisClass, &ThisClass::OnMouseLeave>),
#define ON_WM_MOUSEWHEEL() \
    afx::Entry(WM_MOUSEWHEEL, &afx::MouseWheel<ThisClass, &ThisClass::OnMouseWheel>),
#define ON_WM_MOUSEHWHEEL() \
    afx::Entry(WM_MOUSEHWHEEL, &afx::MouseHWheel<ThisClass, &ThisClass::OnMouseHWheel>),
#define ON_WM_HSCROLL() afx::Entry(WM_HSCROLL, &afx::HScroll<ThisClass, &ThisClass::OnHScroll>),
#define ON_WM_VSCROLL() afx::Entry(WM_VSCROLL, &afx::VScroll<ThisClass, &ThisClass::OnVScroll>),
#define ON_WM_GETDLGCODE() \
    afx::Entry(WM_GETDLGCODE, &afx::GetDlgCode<ThisClass, &ThisClass::OnGetDlgCode>),
#define ON_WM_SHOWWINDOW() \
    afx::Entry(WM_SHOWWINDOW, &afx::ShowWindow<ThisClass, &ThisClass::OnShowWindow>),
#define ON_WM_ENABLE() afx::Entry(WM_ENABLE, &afx::Enable<ThisClass, &ThisClass::OnEnable>),

#define ON_MESSAGE(number, member) afx::Entry(number, &afx::Message<ThisClass, member>),
// The variable holds what RegisterWindowMessageW gave and is read at each message.
#define ON_REGISTERED_MESSAGE(variable, member) \
    AFX_MSGMAP_ENTRY{0, 0, 0, 0, &(variable), &afx::Message<ThisClass, member>},

#define ON_CONTROL(code, id, member) \
    afx::Control(WM_COMMAND, code, id, id, &afx::Command<ThisClass, member>),
#define ON_CONTROL_RANGE(code, first, last, member) \
    afx::Control(WM_COMMAND, code, first, last, &afx::CommandId<ThisClass, member>),
#define ON_CONTROL_REFLECT(code, member) \
    afx::Control(WM_COMMAND + WM_REFLECT_BASE, code, 0, 0xFFFF, &afx::Command<ThisClass, member>),
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)
#define ON_NOTIFY(code, id, member) \
    afx::Control(WM_NOTIFY, static_cast<UINT>(code), id, id, &afx::Notify<ThisClass, member>),
#define ON_NOTIFY_REFLECT(code, member)                                           \
    afx::Control(WM_NOTIFY + WM_REFLECT_BASE, static_cast<UINT>(code), 0, 0xFFFF, \
                 &afx::Notify<ThisClass, member>),
// The handler's answer TRUE keeps the notification from the parent.
#define ON_NOTIFY_REFLECT_EX(code, member)                                        \
    afx::Control(WM_NOTIFY + WM_REFLECT_BASE, static_cast<UINT>(code), 0, 0xFFFF, \
                 &afx::NotifyEx<ThisClass, member>),

#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_SETFOCUS(id, member) ON_CONTROL(EN_SETFOCUS, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_CBN_KILLFOCUS(id, member) ON_CONTROL(CBN_KILLFOCUS, id, member)
#define ON_LBN_SELCHANGE(id, member) ON_CONTROL(LBN_SELCHANGE, id, member)
#define ON_LBN_SELCANCEL(id, member) ON_CONTROL(LBN_SELCANCEL, id, member)
#define ON_LBN_DBLCLK(id, member) ON_CONTROL(LBN_DBLCLK, id, member)
