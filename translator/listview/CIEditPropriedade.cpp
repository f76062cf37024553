// The editor of a text cell, model of the others.
#include "translator/listview/CIEditPropriedade.h"

#include "translator/listview/CIListViewPropriedadeItem.h"
#include "translator/listview/MensagensLista.h"

namespace ListView {
namespace {

bool EhDigitoOuSinal(UINT c) {
    return (c >= '0' && c <= '9') || c == ',' || c == '.' || c == '-' || c == VK_RETURN;
}

bool EhIdentificador(UINT c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

}  // namespace

IMPLEMENT_DYNAMIC(CIEditPropriedade, CEdit)

BEGIN_MESSAGE_MAP(CIEditPropriedade, CEdit)
ON_WM_CREATE()
ON_WM_CHAR()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

BOOL CIEditPropriedade::Create(CWnd* list, const TQString& text, const CRect& rect) {
    if (!CEdit::Create(kEstiloEdit, rect, list, kIdEdit)) return FALSE;
    SetWindowText(text);
    SetFocus();
    SetSel(0, -1);
    return TRUE;
}

int CIEditPropriedade::OnCreate(LPCREATESTRUCT create) {
    TomarFonteDaLista(*this);
    return CEdit::OnCreate(create);
}

BOOL CIEditPropriedade::PreTranslateMessage(MSG* message) {
    if (!TeclaDeEditor(*message)) return CEdit::PreTranslateMessage(message);
    if (!TeclaVertical(*message)) return DespacharTecla(*message);
    OnChar(static_cast<UINT>(message->wParam), 1, 0);
    return TRUE;
}

// A text at its limit swallows navigation too, and so does a class that lacks the key's code:
// Tab and Escape do nothing in a cell of digits.
bool CIEditPropriedade::Recusa(UINT character) const {
    if (character == VK_BACK) return false;
    if (GetWindowTextLength() >= limite) return true;
    if (formato == DIGITOS) return !EhDigitoOuSinal(character);
    if (formato == IDENTIFICADOR) return !EhIdentificador(character);
    return false;
}

void CIEditPropriedade::OnChar(UINT character, UINT repeat, UINT flags) {
    if (Recusa(character)) return;
    if (!NavegarCelula(character, linha, coluna, GetParent()))
        CEdit::OnChar(character, repeat, flags);
}

void CIEditPropriedade::OnKillFocus(CWnd* next) {
    const HWND self = m_hWnd;
    CEdit::OnKillFocus(next);
    TQString text = TextoDe(*this);
    if (static_cast<int32_t>(text.size()) >= limite) {
        text.resize(limite > 0 ? limite : 0);  // a text of just the limit is written back as it is
        SetWindowText(text);
    }
    EnviarRegistro(GetParent(), WM_EDIT_ENDEDIT,
                   std::make_unique<structFimTexto>(structFimTexto{linha, coluna, text}));
    EncerrarEditor(self);
}

}  // namespace ListView
