// The editor of a cell of free text with proposals.
#include "translator/listview/CIEditComboPropriedade.h"

#include <algorithm>

#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/MensagensLista.h"

namespace ListView {
namespace {

// Visible child, vertical scroll bar, owner-drawn with strings where there is something to draw.
constexpr DWORD kEstiloComLista = 0x50200252;  // drop-down
constexpr DWORD kEstiloSemLista = 0x50200251;  // simple

}  // namespace

IMPLEMENT_DYNAMIC(CIEditComboPropriedade, CAutoCombo)

BEGIN_MESSAGE_MAP(CIEditComboPropriedade, CAutoCombo)
ON_WM_CREATE()
ON_WM_CHAR()
ON_CONTROL_REFLECT(CBN_KILLFOCUS, &CIEditComboPropriedade::OnFocoPerdido)
END_MESSAGE_MAP()

BOOL CIEditComboPropriedade::Create(CWnd* list, const TQStringList& values,
                                    const TQStringList& complements, int32_t index,
                                    const CRect& rect) {
    const DWORD style = values.empty() ? kEstiloSemLista : kEstiloComLista;
    if (!CComboBox::Create(style, rect, list, kIdCombo)) return FALSE;
    SendMessage(CB_LIMITTEXT, limite);
    comDescricao = !complements.empty();
    auto complement = complements.begin();
    for (const TQString& value : values) {
        const bool has = complement != complements.end();
        AddEntry(-1, value, has ? &*complement : nullptr);
        if (has) ++complement;
    }
    indiceAtual = SetCurSel(index);
    if (indiceAtual < 0) SetWindowText(values.Front());
    SetFocus();
    SetEditSel(0, -1);
    return TRUE;
}

int CIEditComboPropriedade::OnCreate(LPCREATESTRUCT create) {
    TomarFonteDaLista(*this);
    return CAutoCombo::OnCreate(create);
}

BOOL CIEditComboPropriedade::PreTranslateMessage(MSG* message) {
    if (!TeclaDeEditor(*message)) return CAutoCombo::PreTranslateMessage(message);
    const UINT key = static_cast<UINT>(message->wParam);
    return NavegarCelula(key, linha, coluna, GetParent()) || DespacharTecla(*message);
}

void CIEditComboPropriedade::OnChar(UINT character, UINT repeat, UINT flags) {
    if (character != VK_BACK && GetWindowTextLength() >= limite) return;
    if (!NavegarCelula(character, linha, coluna, GetParent()))
        CAutoCombo::OnChar(character, repeat, flags);
}

// The entry chosen, or the first of that text; the first one for a text without an entry.
int32_t CIEditComboPropriedade::IndiceNoCombo(const TQString& text) const {
    if (const int chosen = GetCurSel(); chosen >= 0) return chosen;
    for (int entry = 0; entry < GetCount(); ++entry) {
        CString present;
        GetLBText(entry, present);
        if (text == present) return entry;
    }
    return 0;
}

int32_t CIEditComboPropriedade::GuardarNaCelula(CIListViewPropriedadeItem& cell,
                                                const TQString& text) {
    TQStringList& values = cell.valores;
    const auto known = std::find(values.begin(), values.end(), text);
    if (known != values.end()) {
        SetWindowText(text);
        return static_cast<int32_t>(std::distance(values.begin(), known));
    }
    if (manterPrimeiro && !values.empty()) {
        values.resize(1);
        if (cell.complementos.size() > 1) cell.complementos.resize(1);
        values.push_back(text);
        return 1;
    }
    values.push_front(text);
    if (!cell.complementos.empty()) cell.complementos.push_front(TQString());  // keep in step
    return 0;
}

void CIEditComboPropriedade::OnFocoPerdido() {
    const HWND self = m_hWnd;
    CWnd* parent = GetParent();
    const TQString text = TextoDe(*this);
    int32_t index = IndiceNoCombo(text);
    if (parent && parent->IsKindOf(RUNTIME_CLASS(CIListViewEdit))) {
        auto& list = static_cast<CIListViewEdit&>(*parent);
        if (CIListViewPropriedadeItem* cell = list.Celula(linha, coluna)) {
            index = GuardarNaCelula(*cell, text);
            list.SetItemText(linha, coluna, text);
        }
    }
    EnviarRegistro(parent, WM_COMBO_ENDEDIT,
                   std::make_unique<structFimIndice>(structFimIndice{linha, coluna, index}));
    EncerrarEditor(self);
}

}  // namespace ListView
