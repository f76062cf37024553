// The window of a dialog: made from its template, shown, run as a modal loop.
#include "platform/window/CDialog.h"

#include <QApplication>
#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/AccessibleNames.h"
#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

struct KindOfControl {
    ControlKind kind;
    DWORD style;
    LPCWSTR className;
};

constexpr DWORD STOP = WS_TABSTOP;
constexpr KindOfControl KINDS[] = {
    {ControlKind::PushButton, BS_PUSHBUTTON | STOP, u"BUTTON"},
    {ControlKind::DefPushButton, BS_DEFPUSHBUTTON | STOP, u"BUTTON"},
    {ControlKind::AutoCheckBox, BS_AUTOCHECKBOX | STOP, u"BUTTON"},
    {ControlKind::AutoRadioButton, BS_AUTORADIOBUTTON | STOP, u"BUTTON"},
    {ControlKind::GroupBox, BS_GROUPBOX, u"BUTTON"},
    {ControlKind::LeftText, SS_LEFT, u"STATIC"},
    {ControlKind::EditText, WS_BORDER | ES_AUTOHSCROLL | STOP, u"EDIT"},
    {ControlKind::DropDownList, CBS_DROPDOWNLIST | WS_VSCROLL | STOP, u"COMBOBOX"},
    {ControlKind::DropDown, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | STOP, u"COMBOBOX"},
    {ControlKind::ListBox, LBS_NOTIFY | WS_BORDER | WS_VSCROLL | STOP, u"LISTBOX"},
    {ControlKind::ListView, WS_BORDER | STOP, u"SysListView32"},
};

const KindOfControl& KindOf(ControlKind kind) {
    return *std::find_if(std::begin(KINDS), std::end(KINDS),
                         [kind](const KindOfControl& entry) { return entry.kind == kind; });
}

CRect InPixels(const DialogControl& control) {
    return {DialogUnitsX(control.x), DialogUnitsY(control.y),
            DialogUnitsX(control.x + control.width), DialogUnitsY(control.y + control.height)};
}

QWidget* MakeDialogWidget(WindowHandle& handle, QWidget* parent) {
    if (handle.HasStyle(WS_CHILD)) return new QWidget(parent);
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (handle.HasStyle(WS_THICKFRAME)) flags |= Qt::WindowMaximizeButtonHint;
    auto* widget = new QWidget(parent ? parent->window() : nullptr, flags);
    widget->setAttribute(Qt::WA_QuitOnClose, false);
    handle.setTextOf = [widget, &handle](const QString& text) {
        widget->setWindowTitle(text);
        NameControls(handle);
    };
    return widget;
}

const WindowClassEntry entry({u"#32770", &MakeDialogWidget, &MakeObject<CDialog>});

}  // namespace

CDialog::~CDialog() = default;

const DialogTemplate& CDialog::Template() const {
    const DialogTemplate* table = FindDialogTemplate(templateId);
    if (!table)
        throw std::invalid_argument("dialog: no template has the number " +
                                    std::to_string(templateId) +
                                    "; a DialogResource beside the dialog makes it known");
    return *table;
}

void CDialog::CreateFrom(const DialogTemplate& table, CWnd* parent) {
    ended = false;
    defaultId = 0;
    const CRect rect(0, 0, DialogUnitsX(table.width), DialogUnitsY(table.height));
    if (!CWnd::Create(u"#32770", table.caption, table.style, rect, parent, 0)) return;
    CFont font;
    font.CreatePointFont(table.points * 10, table.font);
    SetFont(&font);
    CreateControls(table);
    if (!(table.style & WS_CHILD)) CenterWindow();
    // The first control has the focus unless the dialog gives it to another.
    firstTakesFocus = SendMessage(WM_INITDIALOG) != 0;
}

void CDialog::CreateControls(const DialogTemplate& table) {
    for (const DialogControl& control : table.controls) {
        const KindOfControl& kind = KindOf(control.kind);
        const DWORD style = WS_CHILD | WS_VISIBLE | kind.style | control.style;
        WindowHandle::Create(kind.className, nullptr, control.text, style, InPixels(control),
                             m_hWnd, control.id);
        if (control.kind == ControlKind::DefPushButton) defaultId = control.id;
    }
    NameControls(*m_hWnd);
}

int CDialog::DoModal() {
    std::exception_ptr failure;
    try {
        CreateFrom(Template(), parentWindow);
    } catch (...) {
        failure = std::current_exception();
    }
    return RunModal(failure);
}

int CDialog::RunModal(std::exception_ptr failure) {
    const QPointer<QWidget> widget = WidgetOf(this);
    try {
        if (!failure && widget && !ended) ShowModal();
    } catch (...) {
        failure = std::current_exception();
    }
    loop = nullptr;
    const int answer = ended ? result : IDCANCEL;
    try {
        DestroyWindow();
    } catch (...) {
        if (!failure) failure = std::current_exception();
    }
    // Nothing of the dialog runs any more, and dialogs may hold much: the widgets go at once.
    delete widget.data();
    if (failure) std::rethrow_exception(failure);
    return answer;
}

void CDialog::ShowModal() {
    ModalLoop running;
    loop = &running;
    running.Run([this] {
        QWidget& widget = *WidgetOf(this);
        widget.setWindowModality(Qt::ApplicationModal);
        widget.show();
        widget.activateWindow();
        if (m_hWnd && firstTakesFocus) GotoDlgCtrl(FirstTabStop());
    });
}

// A dialog keeps the focus for no longer than it takes to hand it on: to the control that had it,
// or in whose inside it was, else to the first one.
void CDialog::PassFocus() {
    const HWND last = m_hWnd->lastFocus;
    CWnd* target = ::IsWindow(last) ? FromHandle(last) : nullptr;
    if (!target || !target->IsWindowVisible() || !target->IsWindowEnabled())
        target = FirstTabStop();
    if (target) target->SetFocus();
}

void CDialog::EndDialog(int answer) {
    result = answer;
    ended = true;
    if (loop) loop->End();
    if (QWidget* widget = WidgetOf(this)) widget->hide();
}
