// The exchange functions of dialogs.
#include "platform/window/CDataExchange.h"

#include <stdexcept>
#include <string>

#include "platform/window/CComboBox.h"

namespace {

CWnd& ControlOf(CDataExchange* exchange, int id) {
    CWnd* control = exchange->m_pDlgWnd->GetDlgItem(id);
    if (!control)
        throw std::invalid_argument("data exchange: the dialog has no control " +
                                    std::to_string(id) + "; its template must have one");
    return *control;
}

}  // namespace

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (!control.GetSafeHwnd()) control.SubclassWindow(ControlOf(exchange, id).GetSafeHwnd());
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    CWnd& control = ControlOf(exchange, id);
    if (exchange->m_bSaveAndValidate)
        control.GetWindowText(value);
    else
        control.SetWindowText(value.GetString());
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    CWnd& control = ControlOf(exchange, id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(control.SendMessage(BM_GETCHECK));
    else
        control.SendMessage(BM_SETCHECK, static_cast<WPARAM>(value));
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& index) {
    auto& combo = dynamic_cast<CComboBox&>(ControlOf(exchange, id));
    if (exchange->m_bSaveAndValidate)
        index = combo.GetCurSel();
    else
        combo.SetCurSel(index);
}
