// The way of a message through a window's handlers.
#include "platform/window/CWnd.h"

#include "platform/window/CDataExchange.h"

IMPLEMENT_DYNAMIC(CWnd, CObject)

const AFX_MSGMAP* CWnd::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    using ThisClass = CWnd;
    static const AFX_MSGMAP_ENTRY entries[] = {ON_WM_NCDESTROY(){}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

namespace {

bool IsNotification(UINT message) {
    const UINT plain = message >= WM_REFLECT_BASE ? message - WM_REFLECT_BASE : message;
    return plain == WM_COMMAND || plain == WM_NOTIFY;
}

bool Matches(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id) {
    if (entry.registered) return message >= 0xC000 && *entry.registered == message;
    if (entry.message != message) return false;
    return !IsNotification(message) ||
           (entry.code == code && entry.firstId <= id && id <= entry.lastId);
}

}  // namespace

bool CWnd::Dispatch(MessageCall& call, UINT message, UINT code, UINT id) {
    for (auto* map = GetMessageMap(); map;
         map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (auto* entry = map->lpEntries; entry->invoke; ++entry)
            if (Matches(*entry, message, code, id) && entry->invoke(*this, call)) return true;
    return false;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    MessageCall call{message, wParam, lParam};
    switch (message) {
        case WM_COMMAND:
            if (OnCommand(wParam, lParam)) return 0;
            break;
        case WM_NOTIFY:
            if (OnNotify(wParam, lParam, &call.result)) return call.result;
            break;
        case WM_DRAWITEM: {
            CWnd* sender =
                FromHandlePermanent(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)->hwndItem);
            if (sender && sender->OnChildNotify(message, wParam, lParam, &call.result)) return TRUE;
            break;
        }
        default:
            break;
    }
    if (!IsNotification(message) && Dispatch(call, message)) return call.result;
    return DefWindowProc(message, wParam, lParam);
}

// The control itself comes first: what it handles by reflection its parent does not see.
BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    LRESULT ignored = 0;
    CWnd* sender = FromHandlePermanent(reinterpret_cast<HWND>(lParam));
    if (sender && sender->OnChildNotify(WM_COMMAND, wParam, lParam, &ignored)) return TRUE;
    MessageCall call{WM_COMMAND, wParam, lParam};
    return Dispatch(call, WM_COMMAND, HIWORD(wParam), LOWORD(wParam));
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& header = *reinterpret_cast<NMHDR*>(lParam);
    CWnd* sender = FromHandlePermanent(header.hwndFrom);
    if (sender && sender->OnChildNotify(WM_NOTIFY, wParam, lParam, result)) return TRUE;
    MessageCall call{WM_NOTIFY, wParam, lParam};
    if (!Dispatch(call, WM_NOTIFY, header.code, header.idFrom)) return FALSE;
    *result = call.result;
    return TRUE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (!IsNotification(message)) return FALSE;
    const UINT code =
        message == WM_COMMAND ? HIWORD(wParam) : reinterpret_cast<NMHDR*>(lParam)->code;
    MessageCall call{message, wParam, lParam};
    const bool handled = Dispatch(call, message + WM_REFLECT_BASE, code);
    *result = call.result;
    return handled;
}

CWnd* afx::WindowIn(WPARAM handle) { return CWnd::FromHandle(reinterpret_cast<HWND>(handle)); }

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void CWnd::OnNcDestroy() {
    Default();
    UnsubclassWindow();
    PostNcDestroy();
}

int CWnd::OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnPaint() { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnSizing(UINT, LPRECT) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMouseLeave() { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
void CWnd::OnMouseHWheel(UINT, short, CPoint) { Default(); }
void CWnd::OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
void CWnd::OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
UINT CWnd::OnGetDlgCode() { return static_cast<UINT>(Default()); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
