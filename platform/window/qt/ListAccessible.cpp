// What a screen reader is told of a list: a table of rows and cells.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <memory>

#include "platform/window/qt/ListWidget.h"

namespace {

class ListAccessible;

class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
  public:
    CellAccessible(ListWidget* list, int row, int column) : list(list), row(row), column(column) {}

    bool isValid() const override {
        return list && row < list->Rows().Count() && column < list->Columns();
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? list->CellText(row, column) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect cell = list->CellRect(row, column);
        return {list->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface
                   ? static_cast<QAccessibleTableCellInterface*>(this)
                   : nullptr;
    }

    int columnExtent() const override { return 1; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    int columnIndex() const override { return column; }
    int rowExtent() const override { return 1; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int rowIndex() const override { return row; }
    bool isSelected() const override {
        return isValid() && list->Rows().State(row) & window::ListRows::kSelected;
    }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    QPointer<ListWidget> list;
    int row, column;
};

QAccessible::State CellAccessible::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    const unsigned of = list->Rows().State(row);
    state.selectable = state.focusable = true;
    state.selected = of & window::ListRows::kSelected ? 1 : 0;
    state.focused = of & window::ListRows::kFocused && list->hasFocus() ? 1 : 0;
    state.offscreen = !list->viewport()->rect().intersects(list->CellRect(row, column));
    return state;
}

// Cells are made when they are asked for and kept by their number, row by row.
class ListAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit ListAccessible(ListWidget* list)
        : QAccessibleWidget(list, QAccessible::Table), list(list) {}
    ~ListAccessible() override {
        for (const QAccessible::Id id : std::as_const(cells))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return Rows().Count() * list->Columns(); }
    QAccessibleInterface* child(int index) const override {
        const int columns = list->Columns();
        return columns > 0 && index >= 0 ? cellAt(index / columns, index % columns) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* cell = dynamic_cast<const CellAccessible*>(child);
        return cell ? cell->rowIndex() * list->Columns() + cell->columnIndex() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = list->viewport()->mapFromGlobal(QPoint(x, y));
        return cellAt(list->RowAt(point), list->ColumnAt(point.x()));
    }
    QAccessibleInterface* focusChild() const override { return cellAt(Rows().Focus(), 0); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedCellCount() const override { return Rows().SelectedCount() * list->Columns(); }
    QString columnDescription(int column) const override {
        return list->Header()
            .columns.headerData(column, Qt::Horizontal, Qt::DisplayRole)
            .toString();
    }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return Rows().SelectedCount(); }
    int columnCount() const override { return list->Columns(); }
    int rowCount() const override { return Rows().Count(); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override {
        return row >= 0 && row < rowCount() && Rows().State(row) & window::ListRows::kSelected;
    }
    bool selectRow(int row) override { return SetRow(row, window::ListRows::kSelected); }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override { return SetRow(row, 0); }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    const window::ListRows& Rows() const { return list->Rows(); }
    bool SetRow(int row, unsigned state) {
        if (row < 0 || row >= rowCount()) return false;
        list->SelectableRows().SetState(row, state, window::ListRows::kSelected);
        list->viewport()->update();
        return true;
    }

    ListWidget* list;
    mutable QHash<qint64, QAccessible::Id> cells;
};

QAccessibleInterface* ListAccessible::cellAt(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
    const qint64 key = qint64(row) << 32 | column;
    if (const auto known = cells.constFind(key); known != cells.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* cell = new CellAccessible(list, row, column);  // the registry takes it over
    cells.insert(key, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QList<int> ListAccessible::selectedRows() const {
    QList<int> selected;
    for (int row = -1; (row = Rows().Next(row, window::ListRows::kSelected)) >= 0;)
        selected.append(row);
    return selected;
}

QList<QAccessibleInterface*> ListAccessible::selectedCells() const {
    QList<QAccessibleInterface*> selected;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column) selected.append(cellAt(row, column));
    return selected;
}

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* list = dynamic_cast<ListWidget*>(object);
    return list ? new ListAccessible(list) : nullptr;
}

}  // namespace

void InstallListAccessibility() {
    static const bool installed = (QAccessible::installFactory(MakeAccessible), true);
    static_cast<void>(installed);
}
