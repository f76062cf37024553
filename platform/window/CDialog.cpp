// Dialogs: their keys, buttons and data; the window itself stands in qt/CDialog.cpp.
#include "platform/window/CDialog.h"

#include "platform/window/AfxWin.h"
#include "platform/window/CEdit.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &ThisClass::OnOK)
ON_COMMAND(IDCANCEL, &ThisClass::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : templateId(templateId), parentWindow(parent) {}

BOOL CDialog::OnInitDialog() { return UpdateData(FALSE); }

void CDialog::OnOK() {
    if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

UINT CDialog::GetDefID() const { return defaultId; }
void CDialog::SetDefID(UINT id) { defaultId = id; }

void CDialog::NextDlgCtrl() const {
    if (CWnd* next = GetNextDlgTabItem(GetFocus())) next->SetFocus();
}

void CDialog::PrevDlgCtrl() const {
    if (CWnd* next = GetNextDlgTabItem(GetFocus(), TRUE)) next->SetFocus();
}

// A field that is reached by a key has all its text selected.
void CDialog::GotoDlgCtrl(CWnd* control) {
    if (!control) return;
    control->SetFocus();
    if (control->IsKindOf(RUNTIME_CLASS(CEdit))) control->SendMessage(EM_SETSEL, 0, -1);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (CWnd::PreTranslateMessage(message)) return TRUE;
    // The keys of a page belong to the window around it.
    return message->message == WM_KEYDOWN && !(GetStyle() & WS_CHILD) && HandleDialogKey(*message);
}

bool CDialog::HandleDialogKey(const MSG& message) {
    const auto code = ::SendMessage(message.hwnd, WM_GETDLGCODE, message.wParam,
                                    reinterpret_cast<LPARAM>(&message));
    if (code & DLGC_WANTALLKEYS) return false;
    switch (message.wParam) {
        case VK_TAB:
            if (code & DLGC_WANTTAB || GetKeyState(VK_CONTROL) < 0) return false;
            GotoDlgCtrl(GetNextDlgTabItem(FromHandle(message.hwnd), GetKeyState(VK_SHIFT) < 0));
            return true;
        case VK_RETURN:
            return PressEnter();
        case VK_ESCAPE: {
            const CWnd* button = GetDlgItem(IDCANCEL);
            if (!button || button->IsWindowEnabled()) SendMessage(WM_COMMAND, IDCANCEL);
            return true;
        }
        default:
            return false;
    }
}

// Enter presses the button with the focus, else the default button; a dialog without one hears
// IDOK.
bool CDialog::PressEnter() {
    CWnd* focus = GetFocus();
    const bool onButton = focus && IsChild(focus) &&
                          focus->SendMessage(WM_GETDLGCODE) & (DLGC_DEFPUSHBUTTON | DLGC_BUTTON);
    CWnd* button = onButton ? focus : defaultId ? GetDlgItem(static_cast<int>(defaultId)) : nullptr;
    if (!button)
        SendMessage(WM_COMMAND, defaultId ? defaultId : IDOK);
    else if (button->IsWindowEnabled())
        button->SendMessage(BM_CLICK);
    return true;
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            return OnInitDialog();
        case WM_CLOSE:
            return SendMessage(WM_COMMAND, IDCANCEL);
        case DM_GETDEFID:
            return static_cast<LRESULT>(defaultId);
        case DM_SETDEFID:
            defaultId = static_cast<UINT>(wParam);
            return TRUE;
        case WM_SETFOCUS:
            PassFocus();
            return 0;
        default:
            return CWnd::DefWindowProc(message, wParam, lParam);
    }
}

CWnd* CDialog::FirstTabStop() { return GetNextDlgTabItem(nullptr); }

BOOL CDialog::Create(UINT id, CWnd* parent) {
    templateId = id;
    parentWindow = parent;
    CreateFrom(Template(), parent);
    return m_hWnd != nullptr;
}
