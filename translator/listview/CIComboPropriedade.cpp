// The editor of a cell with fixed options.
#include "translator/listview/CIComboPropriedade.h"

#include "translator/listview/MensagensLista.h"

namespace ListView {
namespace {

constexpr DWORD kEstilo = 0x50200003;  // visible child, vertical scroll bar, drop-down list

}  // namespace

IMPLEMENT_DYNAMIC(CIComboPropriedade, CComboBox)

BEGIN_MESSAGE_MAP(CIComboPropriedade, CComboBox)
ON_WM_CREATE()
ON_WM_KILLFOCUS()
ON_CONTROL_REFLECT(CBN_SELCHANGE, &CIComboPropriedade::OnSelChange)
END_MESSAGE_MAP()

BOOL CIComboPropriedade::Create(CWnd* list, const TQStringList& values, int32_t index,
                                const CRect& rect) {
    if (values.empty()) return FALSE;
    if (!CComboBox::Create(kEstilo, rect, list, kIdCombo)) return FALSE;
    for (const TQString& value : values) AddString(value);
    SetCurSel(index);
    SetFocus();
    ShowDropDown();
    return TRUE;
}

int CIComboPropriedade::OnCreate(LPCREATESTRUCT create) {
    TomarFonteDaLista(*this);
    return CComboBox::OnCreate(create);
}

BOOL CIComboPropriedade::PreTranslateMessage(MSG* message) {
    if (!TeclaDeEditor(*message)) return CComboBox::PreTranslateMessage(message);
    const UINT key = static_cast<UINT>(message->wParam);
    return NavegarCelula(key, linha, coluna, GetParent()) || DespacharTecla(*message);
}

void CIComboPropriedade::OnSelChange() { Enviar(WM_COMBO_SELCHANGE); }

void CIComboPropriedade::OnKillFocus(CWnd* next) {
    const HWND self = m_hWnd;
    CComboBox::OnKillFocus(next);
    Enviar(WM_COMBO_ENDEDIT);
    EncerrarEditor(self);
}

void CIComboPropriedade::Enviar(UINT message) {
    EnviarRegistro(GetParent(), message,
                   std::make_unique<structFimIndice>(structFimIndice{linha, coluna, GetCurSel()}));
}

}  // namespace ListView
