// An owner-drawn combo whose entries can bear a second text at the right.
#include "translator/listview/CAutoCombo.h"

#include <algorithm>

#include "platform/window/CDC.h"
#include "translator/listview/Cores.h"

namespace ListView {
namespace {

constexpr int kMargemEsquerda = 5, kMargemSuperior = 2;
constexpr int kMargemDireita = 30, kEspacoMinimo = 15;

}  // namespace

IMPLEMENT_DYNAMIC(CAutoCombo, CComboBox)

CAutoCombo::CAutoCombo()
    : fundoSelecionado(GetSysColor(COLOR_HIGHLIGHT)),
      textoSelecionado(GetSysColor(COLOR_HIGHLIGHTTEXT)),
      fundo(GetSysColor(COLOR_WINDOW)),
      texto(GetSysColor(COLOR_MENUTEXT)),
      textoDescricao(CorCinza()) {}

int CAutoCombo::AddEntry(int index, const TQString& text, const TQString* second) {
    const int entry = InsertString(index, text);
    if (entry >= 0 && comDescricao && second) {
        descricoes.push_back(*second);
        SetItemDataPtr(entry, &descricoes.back());
    }
    return entry;
}

void CAutoCombo::DrawItem(LPDRAWITEMSTRUCT item) {
    CDC* dc = CDC::FromHandle(item->hDC);
    const bool selected = item->itemState & ODS_SELECTED;
    const CRect rect(item->rcItem);
    dc->FillSolidRect(rect, selected ? fundoSelecionado : fundo);
    const int entry = static_cast<int>(item->itemID);
    if (entry < 0) return;
    CString text;
    GetLBText(entry, text);
    dc->SetBkMode(TRANSPARENT);
    DesenharTextos(*dc, rect, text, static_cast<const TQString*>(GetItemDataPtr(entry)), selected);
}

void CAutoCombo::DesenharTextos(CDC& dc, const CRect& rect, const CString& text,
                                const TQString* second, bool selected) const {
    const int left = rect.left + kMargemEsquerda, top = rect.top + kMargemSuperior;
    dc.SetTextColor(selected ? textoSelecionado : texto);
    dc.TextOut(left, top, text);
    if (!second || second->IsEmpty()) return;
    const int end = left + dc.GetTextExtent(text).cx;
    const int right = rect.right - (dc.GetTextExtent(*second).cx + kMargemDireita);
    dc.SetTextColor(selected ? textoSelecionado : textoDescricao);
    dc.TextOut(std::max(right, end + kEspacoMinimo), top, *second);
}

}  // namespace ListView
