// The editor of a colour cell.
#include "translator/listview/CIColorPropriedade.h"

#include "platform/window/CDC.h"
#include "translator/listview/BotaoDaCelula.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/Cores.h"
#include "translator/listview/MensagensLista.h"

namespace ListView {
namespace {

constexpr int kMaisLongo = 3;
constexpr int kTextoX = 5, kTextoY = 3;

bool EhDeNumero(UINT c) { return (c >= '0' && c <= '9') || c == ',' || c == '.' || c == VK_RETURN; }

}  // namespace

IMPLEMENT_DYNAMIC(CIColorPropriedade, CEdit)

BEGIN_MESSAGE_MAP(CIColorPropriedade, CEdit)
ON_WM_CREATE()
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_KILLFOCUS()
ON_WM_PAINT()
END_MESSAGE_MAP()

BOOL CIColorPropriedade::Create(CIListViewEdit* list, const TQString& text, const CRect& rect) {
    const auto [field, rest] = DividirCelula(rect);
    if (!CEdit::Create(kEstiloEdit, field, list, kIdEdit)) return FALSE;
    botao = std::make_unique<CIBtColor>(*this, *list, linha, coluna);
    CriarBotao(*botao, kImagemCores, rest, list);
    SetWindowText(text);
    AtualizarCor();
    SetFocus();
    SetSel(0, -1);
    return TRUE;
}

int CIColorPropriedade::OnCreate(LPCREATESTRUCT create) {
    TomarFonteDaLista(*this);
    return CEdit::OnCreate(create);
}

BOOL CIColorPropriedade::PreTranslateMessage(MSG* message) {
    if (ApertarBotao(*message, botao.get())) return TRUE;
    if (!TeclaDeEditor(*message)) return CEdit::PreTranslateMessage(message);
    if (!TeclaVertical(*message)) return DespacharTecla(*message);
    OnChar(static_cast<UINT>(message->wParam), 1, 0);
    return TRUE;
}

void CIColorPropriedade::OnChar(UINT character, UINT repeat, UINT flags) {
    if (character != VK_BACK && (GetWindowTextLength() >= kMaisLongo || !EhDeNumero(character)))
        return;
    const HWND self = m_hWnd;
    if (NavegarCelula(character, linha, coluna, GetParent())) return;
    CEdit::OnChar(character, repeat, flags);
    if (IsWindow(self)) AtualizarCor();
}

// Delete and the cursor keys change what is shown without being characters.
void CIColorPropriedade::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    const HWND self = m_hWnd;
    CEdit::OnKeyDown(key, repeat, flags);
    if (IsWindow(self)) AtualizarCor();
}

void CIColorPropriedade::AtualizarCor() {
    corDaCelula = ToCor(TextoDe(*this));
    pincel.CreateSolidBrush(corDaCelula);
    Invalidate();
}

void CIColorPropriedade::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    dc.FillRect(client, &pincel);
    dc.SelectObject(GetFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(Complemento(corDaCelula));
    dc.TextOut(kTextoX, kTextoY, TextoDe(*this));
}

void CIColorPropriedade::OnKillFocus(CWnd* next) {
    CEdit::OnKillFocus(next);
    if (!next || next != botao.get()) Terminar();
}

void CIColorPropriedade::Terminar() {
    const HWND self = m_hWnd;
    EnviarRegistro(GetParent(), WM_COLOR_ENDEDIT,
                   std::make_unique<structFimTexto>(structFimTexto{linha, coluna, TextoDe(*this)}));
    EncerrarEditor(self);
}

}  // namespace ListView
