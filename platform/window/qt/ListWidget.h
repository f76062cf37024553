// ListWidget: the widget of a list control, which paints its rows itself.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QScrollBar>

#include "platform/window/ListMessages.h"
#include "platform/window/ListRows.h"
#include "platform/window/qt/ListHeader.h"
#include "platform/window/qt/WindowHandle.h"

// The viewport is the client area: the header lies in it at the top, the rows below. Nothing is
// kept for a row but its data, and only rows in view are measured or drawn. No timer runs.
class ListWidget : public QAbstractScrollArea {
  public:
    static constexpr int kTextMargin = ListHeader::kTextMargin;

    ListWidget(WindowHandle& handle, QWidget* parent);
    ~ListWidget() override;

    // After a change of rows or columns: scroll bars and picture follow once the event loop comes
    // around, or at the first question that needs them.
    void Touch();
    void Settle();

    window::ListRows rows;
    const window::ListRows& Rows() const { return rows; }
    window::ListRows& SelectableRows();  // with the kind of selection that the style asks for

    int Columns() const { return header->columns.columnCount(); }
    void InsertColumn(int column, const QString& title, int format, int width);
    void EraseColumn(int column);
    ListHeader& Header() const { return *header; }
    void FitColumn(int column);  // to its title and the texts in view

    // In pixels of the client area, also of rows and columns out of view.
    int HeaderHeight() const;
    int RowHeight() const { return rowHeight; }
    int PageRows() const;
    QRect RowRect(int row) const;  // all columns
    QRect CellRect(int row, int column) const;
    int RowAt(const QPoint& point) const;  // -1 above, below and beside the columns
    int ColumnAt(int x) const;
    QString CellText(int row, int column) const;
    bool IsCut(int row, int column) const;  // whether the cell is too narrow for its text

    int Top() const { return verticalScrollBar()->value(); }
    void EnsureVisible(int row, bool partial = false);
    void ScrollBy(int dx, int rowsDown);
    void Redraw(int first, int last);

    bool ShowsSelection() const;
    bool HasExtended(DWORD bits) const { return (extendedStyle & bits) == bits; }
    bool HasStyle(DWORD bits) const { return handle.HasStyle(bits); }
    DWORD extendedStyle = 0;
    void SetImageHeight(int height);

    WindowHandle& handle;

  protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool Answer(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void Measure();  // the heights, of the font
    void PlaceHeader();

    void OnBarAction(UINT message, QScrollBar& bar, int action);
    void ScrollByMessage(QScrollBar& bar, UINT code, int position);

    void Click(int row, Qt::KeyboardModifiers modifiers);
    bool MoveByKey(int key, Qt::KeyboardModifiers modifiers);
    bool PressKey(int key, Qt::KeyboardModifiers modifiers);
    void GoTo(int row, Qt::KeyboardModifiers modifiers);
    void ToggleFocused();
    void TypeAhead(const QString& text);
    void Track(const QPoint& point, bool inside);
    void OnColumnClicked(int column);
    LRESULT AskForLabelEdit(int row);
    void ShowTip(const QPoint& point, const QPoint& screen);
    void TellFocus();
    void NameByColumn(QObject* child);

    ListHeader* header;
    int rowHeight = 1;
    int imageHeight = 0;
    bool dirty = false;       // Settle has work to do
    bool barMoves = false;    // a scroll bar is being moved by its user
    bool barMayMove = false;  // and the default handling of the message was reached
    bool quiet = false;       // scroll bars move without a message
    QString typed;            // the beginning that the user types
    QElapsedTimer lastTyped;
};

const WindowClass& ListWindowClass();
void InstallListAccessibility();
