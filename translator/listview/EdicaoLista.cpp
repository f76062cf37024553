// CIListViewEdit: how an edit begins at a click or by a call, and how its value comes back.
#include <algorithm>

#include "platform/kernel/MxSystemServices.h"
#include "platform/window/AfxWin.h"
#include "translator/cad/CICad.h"
#include "translator/listview/CIColorPropriedade.h"
#include "translator/listview/CIComboPropriedade.h"
#include "translator/listview/CIEditComboPropriedade.h"
#include "translator/listview/CIEditPropriedade.h"
#include "translator/listview/CIFindFilePropriedade.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/MensagensLista.h"

namespace ListView {
namespace {

constexpr int kTextoLongo = 6;  // of the catalogue TQINC

// An editor with a window belongs to that window and deletes itself with it.
template <class Editor, class... Arguments>
void Abrir(std::unique_ptr<Editor> editor, const Arguments&... arguments) {
    if (editor->Create(arguments...)) static_cast<void>(editor.release());
}

void MostrarAviso(const TQString& text) {
    CMxSystemServices* services = GetMxSystemServices();
    if (!services) return;
    CMxMessageBox::information(nullptr, services->GetApplicationInfo()->GetApplicationName(), text);
}

}  // namespace

IMPLEMENT_DYNAMIC(CIListViewEdit, CListCtrl)

BEGIN_MESSAGE_MAP(CIListViewEdit, CListCtrl)
ON_WM_NCDESTROY()
ON_WM_LBUTTONDOWN()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
ON_WM_MOUSEHWHEEL()
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &CIListViewEdit::OnCustomDraw)
ON_NOTIFY_REFLECT(LVN_HOTTRACK, &CIListViewEdit::OnHotTrack)
ON_NOTIFY_REFLECT(LVN_BEGINLABELEDITW, &CIListViewEdit::OnBeginLabelEdit)
ON_REGISTERED_MESSAGE(WM_EDIT_ENDEDIT, &CIListViewEdit::OnFimTexto)
ON_REGISTERED_MESSAGE(WM_COMBO_ENDEDIT, &CIListViewEdit::OnFimCombo)
ON_REGISTERED_MESSAGE(WM_COMBO_SELCHANGE, &CIListViewEdit::OnSelecaoCombo)
ON_REGISTERED_MESSAGE(WM_FINDFILE_ENDEDIT, &CIListViewEdit::OnFimArquivo)
ON_REGISTERED_MESSAGE(WM_COLOR_ENDEDIT, &CIListViewEdit::OnFimCor)
END_MESSAGE_MAP()

bool CIListViewEdit::BeginEdit(int32_t row, int32_t col) {
    if (bloqueado) return false;
    const HWND self = m_hWnd;
    SetFocus();
    if (!IsWindow(self))
        return false;  // the editor that lost the focus told a listener, who closed
    if (row < 0 || row >= GetItemCount()) {
        FocarVizinho(row >= 0);
        return false;
    }
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    if (!cell || !cell->editavel) return false;
    ultimaLinha = row;
    AvisarPai(WM_LIST_PROPRIEDADE_BEGINEDIT);
    editando = 1;
    linhaEditada = row;
    colunaEditada = col;
    EnsureVisible(row, FALSE);
    ScrollToColumn(col, false);
    AbrirEditor(row, col);
    return true;
}

void CIListViewEdit::FocarVizinho(bool forwards) {
    const UINT step = forwards ? GW_HWNDNEXT : GW_HWNDPREV;
    const UINT wrap = forwards ? GW_HWNDFIRST : GW_HWNDLAST;
    CWnd* window = this;
    do {
        CWnd* next = window->GetWindow(step);
        window = next ? next : window->GetWindow(wrap);
    } while (window && window != this &&
             !(window->IsWindowVisible() && window->GetStyle() & WS_TABSTOP));
    if (window) window->SetFocus();
}

// A cell of another kind is left with editando set and no editor, as is a list without options.
void CIListViewEdit::AbrirEditor(int32_t row, int32_t col) {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    if (!cell) return;  // the parent has taken the row away when it was told of the edit
    CRect rect;
    GetSubItemRect(row, col, LVIR_LABEL, rect);
    const TQString value = cell->valores.Front();
    switch (cell->tipo) {
        case LISTA:
            return Abrir(std::make_unique<CIComboPropriedade>(row, col), this, cell->valores,
                         cell->indice, rect);
        case TEXTO:
            return Abrir(std::make_unique<CIEditPropriedade>(row, col, cell->formato, cell->limite),
                         this, value, rect);
        case ARQUIVO:
        case ARQUIVO_COMPLETO:
            return Abrir(std::make_unique<CIFindFilePropriedade>(
                             row, col, cell->limite, cell->tipo == ARQUIVO_COMPLETO, pastaAtual),
                         this, value, rect);
        case TEXTO_PROPOSTAS:
            return Abrir(
                std::make_unique<CIEditComboPropriedade>(row, col, cell->limite, manterPrimeiro),
                this, cell->valores, cell->complementos, cell->indice, rect);
        case COR:
            return Abrir(std::make_unique<CIColorPropriedade>(row, col), this, value, rect);
        case ACAO:
            AvisarOuvintes(&ListViewEditListener::OnCelulaAcionada, row, col);
            editando = 0;
            return;
        default:
            return;
    }
}

// Seen here for an editor too, which is a child.
BOOL CIListViewEdit::PreTranslateMessage(MSG* message) {
    if (message->message != WM_KEYDOWN || message->wParam != VK_F2)
        return CListCtrl::PreTranslateMessage(message);
    EditarPeloTeclado();
    return TRUE;
}

void CIListViewEdit::EditarPeloTeclado() {
    const bool open = IsChild(GetFocus());
    const int32_t row = open ? linhaEditada : GetNextItem(-1, LVNI_FOCUSED);
    const int32_t first = open ? colunaEditada + 1 : 0;
    const int32_t columns = GetHeaderCtrl()->GetItemCount();
    for (int32_t step = 0; step < columns; ++step) {
        const int32_t col = (first + step) % columns;
        const CIListViewPropriedadeItem* cell = VerSeHouver(row, col);
        if (cell && cell->editavel) {
            BeginEdit(row, col);
            return;
        }
    }
}

void CIListViewEdit::OnLButtonDown(UINT flags, CPoint point) {
    edicaoMultipla = false;
    if (GetStyle() & LVS_SINGLESEL) {
        CListCtrl::OnLButtonDown(flags, point);
        IniciarNoPonto(point);
    } else if (IniciarNoPonto(point)) {
        // The control does not see the click, so that its selection stays as it was and takes part
        // in the edit.
        GuardarSelecao();
    } else {
        CListCtrl::OnLButtonDown(flags, point);
    }
}

// A click beside the cells counts as taken although nothing begins.
bool CIListViewEdit::IniciarNoPonto(CPoint point) {
    if (bloqueado) return false;
    SetFocus();
    const Posicao cell = HitTest(point);
    if (cell.row < 0 || cell.col < 0) return true;
    return VerSeHouver(cell.row, cell.col) && BeginEdit(cell.row, cell.col);
}

void CIListViewEdit::GuardarSelecao() {
    linhasSelecionadas.clear();
    for (int row = GetNextItem(-1, LVNI_SELECTED); row >= 0; row = GetNextItem(row, LVNI_SELECTED))
        linhasSelecionadas.push_back(row);
    edicaoMultipla = true;
}

// Whatever click the selection was taken at: the click that ends an edit has cleared
// edicaoMultipla already when the value arrives.
bool CIListViewEdit::NaSelecao(int32_t row) const {
    return std::find(linhasSelecionadas.begin(), linhasSelecionadas.end(), row) !=
           linhasSelecionadas.end();
}

void CIListViewEdit::AplicarTexto(int32_t row, int32_t col, const TQString& text) {
    SetValor(row, col, text);
    AvisarOuvintes(&ListViewEditListener::OnCelulaEditada, row, col);
}

void CIListViewEdit::AplicarIndice(int32_t row, int32_t col, int32_t index) {
    SetIndice(row, col, index);
    AvisarOuvintes(&ListViewEditListener::OnCelulaEditada, row, col);
}

void CIListViewEdit::AplicarIndice(const structFimIndice& end) {
    AplicarIndice(end.row, end.col, end.indice);
    if (!NaSelecao(end.row)) return;
    for (const int32_t row : std::list(linhasSelecionadas)) AplicarIndice(row, end.col, end.indice);
}

LRESULT CIListViewEdit::OnFimTexto(WPARAM, LPARAM record) {
    const auto end = ReceberRegistro<structFimTexto>(record);
    if (NaSelecao(end->row))
        for (const int32_t row : std::list(linhasSelecionadas))
            AplicarTexto(row, end->col, end->texto);
    else
        AplicarTexto(end->row, end->col, end->texto);
    editando = 0;
    AvisarPai(WM_LIST_PROPRIEDADE_ENDEDIT);
    return 0;
}

LRESULT CIListViewEdit::OnFimCombo(WPARAM, LPARAM record) {
    const auto end = ReceberRegistro<structFimIndice>(record);
    AplicarIndice(*end);
    Invalidate(TRUE);
    editando = 0;
    AvisarPai(WM_LIST_PROPRIEDADE_ENDEDIT);
    return 0;
}

LRESULT CIListViewEdit::OnSelecaoCombo(WPARAM, LPARAM record) {
    const auto end = ReceberRegistro<structFimIndice>(record);
    AplicarIndice(*end);
    AvisarPai(WM_LIST_PROPRIEDADE_SELCHANGE);
    return 0;
}

// A refused name leaves editando set on purpose, as owners know it.
LRESULT CIListViewEdit::OnFimArquivo(WPARAM, LPARAM record) {
    const auto end = ReceberRegistro<structFimTexto>(record);
    if (GetLimite(end->row, end->col) <= static_cast<int32_t>(end->texto.size())) {
        MostrarAviso(tq::CICad().GetMensagemINC(kTextoLongo));
    } else {
        AplicarTexto(end->row, end->col, end->texto);
        editando = 0;
    }
    AvisarPai(WM_LIST_PROPRIEDADE_ENDEDIT);
    return 0;
}

LRESULT CIListViewEdit::OnFimCor(WPARAM, LPARAM record) {
    const auto end = ReceberRegistro<structFimTexto>(record);
    AplicarTexto(end->row, end->col, end->texto);
    editando = 0;
    AvisarPai(WM_LIST_PROPRIEDADE_ENDEDIT);
    return 0;
}

// A notification code has 16 bits, so the registered number goes without its upper half.
void CIListViewEdit::AvisarPai(UINT message) {
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), LOWORD(message)),
                            reinterpret_cast<LPARAM>(m_hWnd));
}

// The control's own label editing never starts.
void CIListViewEdit::OnBeginLabelEdit(NMHDR*, LRESULT* result) { *result = 1; }

}  // namespace ListView
