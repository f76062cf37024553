// The stages of drawing: the list, each row, each cell.
#include "platform/window/qt/ListPainter.h"

#include <QPaintEvent>
#include <QStyleOption>
#include <algorithm>

void ListWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    ListPainter(*this, painter).Paint(event->rect());
}

ListPainter::ListPainter(ListWidget& list, QPainter& painter)
    : list(list),
      painter(painter),
      context(painter, ToCFont(list.viewport()->font())),
      hotRow(list.viewport()->underMouse()
                 ? list.RowAt(list.viewport()->mapFromGlobal(QCursor::pos()))
                 : -1) {}

void ListPainter::Paint(const QRect& dirty) {
    const QRect client = list.viewport()->rect();
    painter.fillRect(dirty, list.palette().base());
    Look look;
    listAnswer = Ask(CDDS_PREPAINT, client, 0, 0, look);
    if (listAnswer & CDRF_SKIPDEFAULT) return;
    const int top = list.HeaderHeight(), height = list.RowHeight();
    const int first = list.Top() + std::max(0, dirty.top() - top) / height;
    const int end = list.Top() + std::max(0, dirty.bottom() - top) / height + 1;
    for (int row = first; row < std::min(end, list.Rows().Count()); ++row) PaintRow(row);
    if (listAnswer & CDRF_NOTIFYPOSTPAINT) Ask(CDDS_POSTPAINT, client, 0, 0, look);
}

LRESULT ListPainter::Ask(DWORD stage, const QRect& rect, int row, int column, Look& look) {
    NMLVCUSTOMDRAW draw;
    draw.nmcd.hdr.code = NM_CUSTOMDRAW;
    draw.nmcd.dwDrawStage = stage;
    draw.nmcd.hdc = &context;
    draw.nmcd.rc = ToCRect(rect);
    draw.nmcd.uItemState = look.state;
    if (stage & CDDS_ITEM) {
        draw.nmcd.dwItemSpec = static_cast<uintptr_t>(row);
        draw.nmcd.lItemlParam = list.Rows().DataOf(row);
    }
    draw.clrText = look.text;
    draw.clrTextBk = look.back;
    draw.iSubItem = column;
    context.font = &context.base;
    painter.save();
    const LRESULT answer = list.handle.Notify(draw.nmcd.hdr);
    painter.restore();
    look.state = draw.nmcd.uItemState;
    look.text = draw.clrText;
    look.back = draw.clrTextBk;
    if (answer & CDRF_NEWFONT) look.font = ToQFont(*context.font);
    return answer;
}

UINT ListPainter::StateOf(int row) const {
    const unsigned state = list.Rows().State(row);
    const bool selected = state & window::ListRows::kSelected && list.ShowsSelection();
    const bool focused = state & window::ListRows::kFocused && list.hasFocus();
    return (selected ? CDIS_SELECTED : 0) | (focused ? CDIS_FOCUS : 0) |
           (row == hotRow ? CDIS_HOT : 0) | (list.isEnabled() ? 0 : CDIS_DISABLED);
}

void ListPainter::PaintRow(int row) {
    const QRect rect = list.RowRect(row);
    Look look;
    look.font = list.viewport()->font();
    look.state = StateOf(row);
    LRESULT answer = CDRF_DODEFAULT;
    if (listAnswer & CDRF_NOTIFYITEMDRAW) answer = Ask(CDDS_ITEMPREPAINT, rect, row, 0, look);
    if (answer & CDRF_SKIPDEFAULT) return;
    for (int column = 0; column < list.Columns(); ++column) {
        const QRect cell = list.CellRect(row, column);
        if (cell.right() < 0 || cell.left() > list.viewport()->width()) continue;
        Look own = look;
        LRESULT cellAnswer = CDRF_DODEFAULT;
        if (answer & CDRF_NOTIFYSUBITEMDRAW)
            cellAnswer = Ask(CDDS_ITEMPREPAINT | CDDS_SUBITEM, cell, row, column, own);
        if (!(cellAnswer & CDRF_SKIPDEFAULT)) PaintCell(row, column, own);
    }
    if (look.state & CDIS_FOCUS) {
        QStyleOptionFocusRect focus;
        focus.initFrom(&list);
        focus.rect = list.HasExtended(LVS_EX_FULLROWSELECT) ? rect : list.CellRect(row, 0);
        list.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &list);
    }
    if (answer & CDRF_NOTIFYPOSTPAINT) Ask(CDDS_ITEMPOSTPAINT, rect, row, 0, look);
}

void ListPainter::PaintCell(int row, int column, Look look) {
    QRect cell = list.CellRect(row, column);
    if (column > 0 && !list.HasExtended(LVS_EX_FULLROWSELECT)) look.state &= ~CDIS_SELECTED;
    painter.fillRect(cell, BackOf(look));
    if (list.HasExtended(LVS_EX_GRIDLINES)) {
        painter.setPen(list.palette().color(QPalette::Midlight));
        painter.drawLine(cell.bottomLeft(), cell.bottomRight());
        painter.drawLine(cell.topRight(), cell.bottomRight());
    }
    cell.adjust(ListWidget::kTextMargin, 0, -ListWidget::kTextMargin, 0);
    if (cell.width() <= 0) return;
    painter.setFont(look.font);
    painter.setPen(TextOf(look));
    const QString text =
        painter.fontMetrics().elidedText(list.CellText(row, column), Qt::ElideRight, cell.width());
    painter.drawText(
        cell,
        int(list.Header().columns.AlignmentOf(column) | Qt::AlignVCenter) | Qt::TextSingleLine,
        text);
}

// A selection that the keyboard does not act on is drawn in the colours of a button.
QColor ListPainter::BackOf(const Look& look) const {
    if (look.state & CDIS_SELECTED)
        return list.palette().color(list.hasFocus() ? QPalette::Highlight : QPalette::Button);
    if (look.back == CLR_DEFAULT || look.back == CLR_NONE)
        return list.palette().color(QPalette::Base);
    return ToQColor(look.back);
}

QColor ListPainter::TextOf(const Look& look) const {
    if (look.state & CDIS_SELECTED)
        return list.palette().color(list.hasFocus() ? QPalette::HighlightedText
                                                    : QPalette::ButtonText);
    return look.text == CLR_DEFAULT ? list.palette().color(QPalette::Text) : ToQColor(look.text);
}
