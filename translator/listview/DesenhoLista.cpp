// CIListViewEdit: how cells look, and the mouse over them.
#include <algorithm>

#include "platform/window/AfxWin.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/Cores.h"

namespace ListView {
namespace {

constexpr COLORREF kCorSeparador = 0x969696;
constexpr COLORREF kFundoDestaque = 0xE6E6FF;  // pink
constexpr int kMargemLinha = 10;

bool Contem(const std::vector<int32_t>& numbers, int32_t number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

std::unique_ptr<CFont> FonteComo(const LOGFONT& base, int weight, bool underlined) {
    LOGFONT description = base;
    description.lfWeight = weight;
    description.lfUnderline = underlined;
    auto font = std::make_unique<CFont>();
    font->CreateFontIndirect(&description);
    return font;
}

}  // namespace

void CIListViewEdit::OnCustomDraw(NMHDR* header, LRESULT* result) {
    auto& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(header);
    const auto row = static_cast<int32_t>(draw.nmcd.dwItemSpec);
    *result = CDRF_DODEFAULT;
    if (!IsWindowEnabled()) return;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        PrepararFontes();
        celulaSobMouse = CelulaSobMouse();
        *result = CDRF_NOTIFYITEMDRAW;
    } else if (row >= GetItemCount()) {
        return;
    } else if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        *result = DesenharLinha(draw, row);
    } else if (draw.nmcd.dwDrawStage == (CDDS_ITEMPREPAINT | CDDS_SUBITEM)) {
        *result = DesenharCelula(draw, row, draw.iSubItem);
    }
}

LRESULT CIListViewEdit::DesenharLinha(const NMLVCUSTOMDRAW& draw, int32_t row) {
    CDC* dc = CDC::FromHandle(draw.nmcd.hdc);
    CRect rect(draw.nmcd.rc);
    rect.DeflateRect(kMargemLinha, 0);
    if (Contem(linhasSeparadoras, row)) {
        dc->FillSolidRect(rect.left, rect.CenterPoint().y, rect.Width(), 1, kCorSeparador);
        return CDRF_SKIPDEFAULT;
    }
    if (Contem(linhasTitulo, row)) {
        dc->SelectObject(fonteLista.get());
        dc->SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
        dc->SetBkMode(TRANSPARENT);
        dc->DrawText(GetItemText(row, 0), rect,
                     DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
        return CDRF_SKIPDEFAULT;
    }
    return CDRF_NOTIFYSUBITEMDRAW;
}

LRESULT CIListViewEdit::DesenharCelula(NMLVCUSTOMDRAW& draw, int32_t row, int32_t col) {
    const CIListViewPropriedadeItem* found = VerSeHouver(row, col);
    if (!found) return CDRF_DODEFAULT;
    const CIListViewPropriedadeItem& cell = *found;
    draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
    const LRESULT result = bloqueado ? CDRF_DODEFAULT : DestacarEdicao(draw, row, col, cell);
    if (cell.desabilitado)
        draw.clrTextBk = GetSysColor(COLOR_3DLIGHT);
    else if (cell.destaque)
        draw.clrTextBk = kFundoDestaque;
    else if (cell.tipo != COR)
        draw.clrTextBk = GetSysColor(COLOR_WINDOW);
    if (cell.desabilitado || cell.destaque) draw.clrText = CorLegivel(draw.clrText, draw.clrTextBk);
    return result;
}

LRESULT CIListViewEdit::DestacarEdicao(NMLVCUSTOMDRAW& draw, int32_t row, int32_t col,
                                       const CIListViewPropriedadeItem& cell) {
    CDC* dc = CDC::FromHandle(draw.nmcd.hdc);
    if (cell.editavel && cell.tipo == COR) {
        draw.clrTextBk = ToCor(GetValor(row, col, 0));
        draw.clrText = Complemento(draw.clrTextBk);
        return CDRF_DODEFAULT;
    }
    if (cell.editavel) {
        draw.clrText = GetSysColor(COLOR_HOTLIGHT);
        dc->SelectObject(FonteDaCelula(cell.negrito, celulaSobMouse == Posicao{row, col}));
        return CDRF_NEWFONT;
    }
    if (col < 1) return CDRF_DODEFAULT;
    draw.clrText = Contem(colunasEscuras, col) ? GetSysColor(COLOR_BTNTEXT) : CorCinza();
    dc->SelectObject(fonteLista.get());
    return CDRF_NEWFONT;
}

CFont* CIListViewEdit::FonteDaCelula(bool bold, bool underlined) {
    if (bold) return underlined ? fonteNegritoSublinhada.get() : fonteNegrito.get();
    return underlined ? fonteSublinhada.get() : fonteLista.get();
}

void CIListViewEdit::PrepararFontes() {
    if (fonteLista) return;
    LOGFONT own;
    GetFont()->GetLogFont(&own);
    fonteLista = FonteComo(own, own.lfWeight, own.lfUnderline);
    fonteSublinhada = FonteComo(own, FW_NORMAL, true);
    fonteNegrito = FonteComo(own, FW_BOLD, false);
    fonteNegritoSublinhada = FonteComo(own, FW_BOLD, true);
}

// The underline follows the mouse; the row below an open editor stays undisturbed.
void CIListViewEdit::OnHotTrack(NMHDR*, LRESULT* result) {
    const Posicao mouse = CelulaSobMouse();
    const CIListViewPropriedadeItem* cell = VerSeHouver(mouse.row, mouse.col);
    if (cell && cell->editavel && !bloqueado) SetCursor(LoadCursor(nullptr, IDC_HAND));
    const int last = GetItemCount() - 1;
    if (editando) {
        RedrawItems(0, linhaEditada - 1);
        RedrawItems(linhaEditada + 1, last);
    } else {
        RedrawItems(0, last);
    }
    *result = 0;
}

}  // namespace ListView
