// The geometry of a list: columns, rows, scrolling.
#include "platform/window/qt/ListWidget.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>

#include "platform/window/CListCtrl.h"
#include "platform/window/qt/Frame.h"

namespace {

QWidget* MakeList(WindowHandle& handle, QWidget* parent) {
    InstallListAccessibility();
    return new ListWidget(handle, parent);
}

Qt::Alignment AlignmentOf(int format) {
    switch (format & LVCFMT_JUSTIFYMASK) {
        case LVCFMT_RIGHT:
            return Qt::AlignRight;
        case LVCFMT_CENTER:
            return Qt::AlignHCenter;
        default:
            return Qt::AlignLeft;
    }
}

}  // namespace

const WindowClass& ListWindowClass() {
    static const WindowClass list{u"SysListView32", MakeList, MakeObject<CListCtrl>};
    return list;
}

static const WindowClassEntry listEntry(ListWindowClass());

ListWidget::ListWidget(WindowHandle& handle, QWidget* parent)
    : QAbstractScrollArea(parent), handle(handle), header(new ListHeader(viewport())) {
    handle.client = viewport();
    handle.answers = [this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return Answer(message, wParam, lParam, result);
    };
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(handle.HasStyle(WS_BORDER) ? QFrame::StyledPanel : QFrame::NoFrame);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    QObject::connect(header, &QHeaderView::sectionResized, &handle, [this] { Touch(); });
    QObject::connect(header, &QHeaderView::sectionClicked, &handle,
                     [this](int column) { OnColumnClicked(column); });
    QObject::connect(header, &QHeaderView::sectionHandleDoubleClicked, &handle,
                     [this](int column) { FitColumn(column); });
    QObject::connect(verticalScrollBar(), &QScrollBar::actionTriggered, &handle,
                     [this](int action) { OnBarAction(WM_VSCROLL, *verticalScrollBar(), action); });
    QObject::connect(
        horizontalScrollBar(), &QScrollBar::actionTriggered, &handle,
        [this](int action) { OnBarAction(WM_HSCROLL, *horizontalScrollBar(), action); });
    Measure();
}

ListWidget::~ListWidget() { handle.answers = nullptr; }

void ListWidget::Touch() {
    viewport()->update();
    if (dirty) return;
    dirty = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void ListWidget::Settle() {
    if (!dirty) return;
    dirty = false;
    quiet = true;
    verticalScrollBar()->setRange(0, std::max(0, rows.Count() - PageRows()));
    verticalScrollBar()->setPageStep(PageRows());
    horizontalScrollBar()->setRange(0, std::max(0, header->length() - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(rowHeight);
    quiet = false;
    PlaceHeader();
}

window::ListRows& ListWidget::SelectableRows() {
    rows.SetSingleSelection(HasStyle(LVS_SINGLESEL));
    return rows;
}

void ListWidget::InsertColumn(int column, const QString& title, int format, int width) {
    header->columns.Insert(column, title, AlignmentOf(format));
    rows.InsertColumn(column);
    if (width < 0) width = header->sectionSizeHint(column);
    header->resizeSection(column, width);
    Touch();
}

void ListWidget::EraseColumn(int column) {
    header->columns.Erase(column);
    rows.EraseColumn(column);
    Touch();
}

void ListWidget::FitColumn(int column) {
    int width = header->sectionSizeHint(column);
    const int end = std::min(rows.Count(), Top() + PageRows() + 1);
    for (int row = Top(); row < end; ++row) {
        const int text = fontMetrics().horizontalAdvance(CellText(row, column));
        width = std::max(width, text + 2 * kTextMargin + 1);
    }
    header->resizeSection(column, width);
}

int ListWidget::HeaderHeight() const {
    return HasStyle(LVS_NOCOLUMNHEADER) ? 0 : header->sizeHint().height();
}

int ListWidget::PageRows() const {
    return std::max(1, (viewport()->height() - HeaderHeight()) / rowHeight);
}

QRect ListWidget::RowRect(int row) const {
    return {-horizontalScrollBar()->value(), HeaderHeight() + (row - Top()) * rowHeight,
            header->length(), rowHeight};
}

QRect ListWidget::CellRect(int row, int column) const {
    QRect rect = RowRect(row);
    rect.translate(header->sectionPosition(column), 0);
    rect.setWidth(header->sectionSize(column));
    return rect;
}

int ListWidget::RowAt(const QPoint& point) const {
    const int below = point.y() - HeaderHeight();
    if (below < 0 || ColumnAt(point.x()) < 0) return -1;
    const int row = Top() + below / rowHeight;
    return row < rows.Count() ? row : -1;
}

int ListWidget::ColumnAt(int x) const {
    return header->logicalIndexAt(x);  // the header lies over the columns, scrolled alike
}

QString ListWidget::CellText(int row, int column) const {
    const std::u16string_view text = rows.Text(row, column);
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

bool ListWidget::IsCut(int row, int column) const {
    return fontMetrics().horizontalAdvance(CellText(row, column)) >
           header->sectionSize(column) - 2 * kTextMargin;
}

void ListWidget::EnsureVisible(int row, bool partial) {
    Settle();
    const int shown =
        partial ? (viewport()->height() - HeaderHeight() - 1) / rowHeight + 1 : PageRows();
    quiet = true;
    if (row < Top())
        verticalScrollBar()->setValue(row);
    else if (row >= Top() + shown)
        verticalScrollBar()->setValue(row - PageRows() + 1);
    quiet = false;
}

void ListWidget::ScrollBy(int dx, int rowsDown) {
    Settle();
    quiet = true;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + dx);
    verticalScrollBar()->setValue(Top() + rowsDown);
    quiet = false;
}

void ListWidget::Redraw(int first, int last) {
    first = std::max(first, Top());
    last = std::min(last, Top() + PageRows() + 1);
    if (first > last) return;
    viewport()->update(
        QRect(0, RowRect(first).top(), viewport()->width(), (last - first + 1) * rowHeight));
}

bool ListWidget::ShowsSelection() const { return hasFocus() || HasStyle(LVS_SHOWSELALWAYS); }

void ListWidget::SetImageHeight(int height) {
    imageHeight = height;
    Measure();
}

void ListWidget::Measure() {
    rowHeight = std::max(fontMetrics().height() + 1, imageHeight);
    Touch();
}

void ListWidget::PlaceHeader() {
    header->setVisible(!HasStyle(LVS_NOCOLUMNHEADER));
    header->setGeometry(0, 0, viewport()->width(), HeaderHeight());
    header->setOffset(horizontalScrollBar()->value());
}

bool ListWidget::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) Settle();
    return PaintsFrame(*this, *event) || QAbstractScrollArea::event(event);
}

void ListWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    Touch();
    Settle();
}

void ListWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange)
        Measure();
    else if (type == QEvent::EnabledChange || type == QEvent::PaletteChange)
        viewport()->update();
}

// What lies on the view, an editor above all, keeps its place: the owner ends it before.
void ListWidget::scrollContentsBy(int, int) {
    header->setOffset(horizontalScrollBar()->value());
    viewport()->update();
}
