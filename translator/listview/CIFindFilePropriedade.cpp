// The editor of a file cell.
#include "translator/listview/CIFindFilePropriedade.h"

#include "translator/listview/BotaoDaCelula.h"
#include "translator/listview/MensagensLista.h"

namespace ListView {

IMPLEMENT_DYNAMIC(CIFindFilePropriedade, CEdit)

BEGIN_MESSAGE_MAP(CIFindFilePropriedade, CEdit)
ON_WM_CREATE()
ON_WM_CHAR()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

BOOL CIFindFilePropriedade::Create(CWnd* list, const TQString& text, const CRect& rect) {
    const auto [field, rest] = DividirCelula(rect);
    if (!CEdit::Create(kEstiloEdit, field, list, kIdEdit)) return FALSE;
    botao = std::make_unique<CIBtFindFile>(*this, pasta, caminhoCompleto);
    CriarBotao(*botao, kImagemPasta, rest, list);
    SetWindowText(text);
    SetFocus();
    SetSel(0, -1);
    return TRUE;
}

int CIFindFilePropriedade::OnCreate(LPCREATESTRUCT create) {
    TomarFonteDaLista(*this);
    return CEdit::OnCreate(create);
}

BOOL CIFindFilePropriedade::PreTranslateMessage(MSG* message) {
    if (ApertarBotao(*message, botao.get())) return TRUE;
    if (!TeclaDeEditor(*message)) return CEdit::PreTranslateMessage(message);
    if (!TeclaVertical(*message)) return DespacharTecla(*message);
    OnChar(static_cast<UINT>(message->wParam), 1, 0);
    return TRUE;
}

void CIFindFilePropriedade::OnChar(UINT character, UINT repeat, UINT flags) {
    if (character != VK_BACK && GetWindowTextLength() >= limite) return;
    if (!NavegarCelula(character, linha, coluna, GetParent()))
        CEdit::OnChar(character, repeat, flags);
}

void CIFindFilePropriedade::OnKillFocus(CWnd* next) {
    CEdit::OnKillFocus(next);
    if (!next || next != botao.get()) Terminar();
}

void CIFindFilePropriedade::Terminar() {
    const HWND self = m_hWnd;
    EnviarRegistro(GetParent(), WM_FINDFILE_ENDEDIT,
                   std::make_unique<structFimTexto>(structFimTexto{linha, coluna, TextoDe(*this)}));
    EncerrarEditor(self);
}

}  // namespace ListView
