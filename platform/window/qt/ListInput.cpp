// The user's side of a list: mouse, keys, scroll bars, tips.
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolTip>
#include <algorithm>

#include "platform/text/Conversion.h"
#include "platform/window/qt/ListWidget.h"

using window::ListRows;

bool ListWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<QHelpEvent&>(*event);
        ShowTip(help.pos(), help.globalPos());
        return true;
    }
    if (event->type() == QEvent::ChildPolished)
        NameByColumn(static_cast<QChildEvent&>(*event).child());
    bool ran = false;
    const auto byDefault = [&] {
        ran = true;
        if (event->type() == QEvent::Leave) Track({}, false);
        return QAbstractScrollArea::viewportEvent(event);
    };
    const bool taken = handle.DispatchEvent(viewport(), event, byDefault);
    return taken || ran ? taken : byDefault();
}

// What stands over a cell is read as the cell's column.
void ListWidget::NameByColumn(QObject* child) {
    auto* over = qobject_cast<QWidget*>(child);
    const int column = over && over != header ? ColumnAt(over->geometry().center().x()) : -1;
    if (column >= 0)
        over->setAccessibleName(
            header->columns.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
}

// --- scroll bars ------------------------------------------------------------------------------

namespace {

struct BarRequest {
    int action;
    UINT code;
};
constexpr BarRequest kRequests[] = {
    {QAbstractSlider::SliderSingleStepSub, SB_LINEUP},
    {QAbstractSlider::SliderSingleStepAdd, SB_LINEDOWN},
    {QAbstractSlider::SliderPageStepSub, SB_PAGEUP},
    {QAbstractSlider::SliderPageStepAdd, SB_PAGEDOWN},
    {QAbstractSlider::SliderToMinimum, SB_TOP},
    {QAbstractSlider::SliderToMaximum, SB_BOTTOM},
    {QAbstractSlider::SliderMove, SB_THUMBTRACK},
    {QAbstractSlider::SliderMove, SB_THUMBPOSITION},
};

}  // namespace

// The bar tells before it moves: what a handler does about it, such as ending an editor, comes
// first. A handler that keeps the message from the default handling keeps the view where it is.
void ListWidget::OnBarAction(UINT message, QScrollBar& bar, int action) {
    if (quiet) return;
    const auto request =
        std::find_if(std::begin(kRequests), std::end(kRequests),
                     [&](const BarRequest& each) { return each.action == action; });
    if (request == std::end(kRequests)) return;
    const QScopedValueRollback moves(barMoves, true);
    barMayMove = false;
    Guarded([&] { handle.Deliver(message, MAKEWPARAM(request->code, bar.sliderPosition()), 0); });
    if (!barMayMove) bar.setSliderPosition(bar.value());
}

// A request that the program sends.
void ListWidget::ScrollByMessage(QScrollBar& bar, UINT code, int position) {
    Settle();
    const QScopedValueRollback silent(quiet, true);
    const auto request = std::find_if(std::begin(kRequests), std::end(kRequests),
                                      [&](const BarRequest& each) { return each.code == code; });
    if (request == std::end(kRequests)) return;
    if (request->action == QAbstractSlider::SliderMove)
        bar.setValue(position);
    else
        bar.triggerAction(static_cast<QAbstractSlider::SliderAction>(request->action));
}

void ListWidget::wheelEvent(QWheelEvent* event) {
    const QScopedValueRollback silent(quiet, true);
    QAbstractScrollArea::wheelEvent(event);
}

bool ListWidget::Answer(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    switch (message) {
        case WM_VSCROLL:
        case WM_HSCROLL:
            if (barMoves)
                barMayMove = true;
            else
                ScrollByMessage(
                    message == WM_VSCROLL ? *verticalScrollBar() : *horizontalScrollBar(),
                    LOWORD(wParam), HIWORD(wParam));
            return true;
        case WM_GETDLGCODE:
            result = DLGC_WANTARROWS | DLGC_WANTCHARS;
            return true;
        default:
            return false;
    }
}

// --- mouse ------------------------------------------------------------------------------------

void ListWidget::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    const int row = RowAt(event->pos());
    const bool counts = HasExtended(LVS_EX_FULLROWSELECT) || ColumnAt(event->pos().x()) == 0;
    const bool chosen = row >= 0 && counts && rows.State(row) & ListRows::kSelected;
    const bool again = chosen && row == rows.Focus();
    if (event->button() == Qt::RightButton && chosen)
        return;  // the menu is for all that is selected
    Click(counts ? row : -1, event->modifiers());
    if (again && event->button() == Qt::LeftButton) AskForLabelEdit(row);
}

void ListWidget::Click(int row, Qt::KeyboardModifiers modifiers) {
    ListRows& list = SelectableRows();
    viewport()->update();
    if (row < 0) {
        if (modifiers & (Qt::ShiftModifier | Qt::ControlModifier)) return;
        list.Deselect();
        list.SetMark(-1);
        return;
    }
    if (modifiers & Qt::ControlModifier && !list.IsSingleSelection()) {
        list.SetState(row, ~list.State(row), ListRows::kSelected);
        list.SetState(row, ListRows::kFocused, ListRows::kFocused);
        list.SetMark(row);
        TellFocus();
        return;
    }
    GoTo(row, modifiers & Qt::ShiftModifier);
}

// Focus and selection to a row; with Shift everything from the mark to it is selected.
void ListWidget::GoTo(int row, Qt::KeyboardModifiers modifiers) {
    ListRows& list = SelectableRows();
    const bool extend = modifiers & Qt::ShiftModifier && !list.IsSingleSelection();
    const int mark = list.Mark() >= 0 ? list.Mark() : std::max(list.Focus(), 0);
    list.SetState(row, ListRows::kFocused, ListRows::kFocused);
    if (extend || !(modifiers & Qt::ControlModifier) || list.IsSingleSelection()) {
        list.SelectOnly(extend ? mark : row, row);
        list.SetMark(extend ? mark : row);
    }
    viewport()->update();
    TellFocus();
}

void ListWidget::mouseMoveEvent(QMouseEvent* event) { Track(event->pos(), true); }

void ListWidget::Track(const QPoint& point, bool inside) {
    NMLISTVIEW hot;
    hot.hdr.code = LVN_HOTTRACK;
    hot.ptAction = CPoint(point.x(), point.y());
    hot.iItem = inside ? RowAt(point) : -1;
    hot.iSubItem = hot.iItem >= 0 ? ColumnAt(point.x()) : 0;
    handle.Notify(hot.hdr);
}

void ListWidget::OnColumnClicked(int column) {
    if (HasStyle(LVS_NOSORTHEADER)) return;
    NMLISTVIEW click;
    click.hdr.code = LVN_COLUMNCLICK;
    click.iSubItem = column;
    handle.Notify(click.hdr);
}

LRESULT ListWidget::AskForLabelEdit(int row) {
    if (!HasStyle(LVS_EDITLABELS)) return TRUE;
    NMLVDISPINFO edit;
    edit.hdr.code = LVN_BEGINLABELEDIT;
    edit.item.iItem = row;
    edit.item.lParam = rows.DataOf(row);
    return handle.Notify(edit.hdr);
}

void ListWidget::ShowTip(const QPoint& point, const QPoint& screen) {
    const int row = RowAt(point);
    if (row < 0 || !HasExtended(LVS_EX_INFOTIP) || !IsCut(row, ColumnAt(point.x()))) {
        QToolTip::hideText();
        return;
    }
    const int column = ColumnAt(point.x());
    // A tip takes what looks like markup for markup; a text of a drawing may look so.
    const QString text =
        "<div style='white-space:pre-wrap'>" + CellText(row, column).toHtmlEscaped() + "</div>";
    QToolTip::showText(screen, text, viewport(), CellRect(row, column));
}

// --- keyboard ---------------------------------------------------------------------------------

void ListWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (rows.Focus() < 0 && rows.Count() > 0)
        rows.SetState(0, ListRows::kFocused, ListRows::kFocused);  // shows where the keys are
    viewport()->update();
}

void ListWidget::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    if (PressKey(event->key(), event->modifiers())) return;
    const QString text = event->text();
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (!command && !text.isEmpty() && text.at(0).isPrint())
        TypeAhead(text);
    else
        event->ignore();
}

bool ListWidget::PressKey(int key, Qt::KeyboardModifiers modifiers) {
    if (MoveByKey(key, modifiers)) return true;
    const bool control = modifiers & Qt::ControlModifier;
    const bool beginning = typed.isEmpty() || !lastTyped.isValid() ||
                           lastTyped.elapsed() > QApplication::keyboardInputInterval();
    if (key == Qt::Key_Space && beginning) {
        ToggleFocused();
        return true;
    }
    if (key == Qt::Key_A && control && !SelectableRows().IsSingleSelection() && rows.Count() > 0) {
        SelectableRows().SelectOnly(0, rows.Count() - 1);
        viewport()->update();
        return true;
    }
    // The header without a mouse: Ctrl+1 is a click on the first column.
    if (control && key >= Qt::Key_1 && key < Qt::Key_1 + std::min(Columns(), 9)) {
        OnColumnClicked(key - Qt::Key_1);
        return true;
    }
    if (key == Qt::Key_F2 && rows.Focus() >= 0 && HasStyle(LVS_EDITLABELS)) {
        AskForLabelEdit(rows.Focus());
        return true;
    }
    return false;
}

bool ListWidget::MoveByKey(int key, Qt::KeyboardModifiers modifiers) {
    const int focus = std::max(rows.Focus(), 0), last = rows.Count() - 1;
    const int step = std::max(1, PageRows() - 1);
    int row = 0;
    switch (key) {
        case Qt::Key_Up:
            row = focus - 1;
            break;
        case Qt::Key_Down:
            row = focus + 1;
            break;
        case Qt::Key_PageUp:
            row = focus - step;
            break;
        case Qt::Key_PageDown:
            row = focus + step;
            break;
        case Qt::Key_Home:
            row = 0;
            break;
        case Qt::Key_End:
            row = last;
            break;
        case Qt::Key_Left:
            ScrollBy(-horizontalScrollBar()->singleStep(), 0);
            return true;
        case Qt::Key_Right:
            ScrollBy(horizontalScrollBar()->singleStep(), 0);
            return true;
        default:
            return false;
    }
    if (last < 0) return true;
    row = std::clamp(row, 0, last);
    GoTo(row, modifiers);
    EnsureVisible(row);
    return true;
}

void ListWidget::ToggleFocused() {
    ListRows& list = SelectableRows();
    if (list.Focus() < 0) return;
    const bool on = list.IsSingleSelection() || !(list.State(list.Focus()) & ListRows::kSelected);
    list.SetState(list.Focus(), on ? ListRows::kSelected : 0, ListRows::kSelected);
    list.SetMark(list.Focus());
    viewport()->update();
}

// To the next row that begins with what is typed; the same letter again and again walks on.
void ListWidget::TypeAhead(const QString& text) {
    const bool goesOn =
        lastTyped.isValid() && lastTyped.elapsed() <= QApplication::keyboardInputInterval();
    lastTyped.start();
    if (!goesOn || typed != text) typed = goesOn ? typed + text : text;
    const std::u16string wanted = text::FoldCase(typed.toStdU16String());
    const int count = rows.Count();
    const int from = std::max(rows.Focus(), 0) + (typed.size() == text.size() ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int row = (from + i) % count;
        const std::u16string_view cell = rows.Text(row, 0);
        if (text::FoldCase(cell.substr(0, wanted.size())) != wanted) continue;
        GoTo(row, Qt::NoModifier);
        EnsureVisible(row);
        return;
    }
}

void ListWidget::TellFocus() {
    if (!QAccessible::isActive() || rows.Focus() < 0) return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(rows.Focus() * Columns());
    QAccessible::updateAccessibility(&event);
}
