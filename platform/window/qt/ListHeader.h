// The columns of a list, shown by a header of the toolkit.
#pragma once

#include <QAbstractTableModel>
#include <QHeaderView>
#include <vector>

// Titles and formats for the header; the rows are none of its business.
class ListColumns : public QAbstractTableModel {
  public:
    void Insert(int column, const QString& title, Qt::Alignment alignment);
    void Erase(int column);
    Qt::Alignment AlignmentOf(int column) const { return columns[column].alignment; }

    int rowCount(const QModelIndex& = {}) const override { return 0; }
    int columnCount(const QModelIndex& = {}) const override {
        return static_cast<int>(columns.size());
    }
    QVariant data(const QModelIndex&, int) const override { return {}; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Column {
        QString title;
        Qt::Alignment alignment;
    };
    std::vector<Column> columns;
};

class ListHeader : public QHeaderView {
  public:
    static constexpr int kTextMargin = 4;  // left and right of a text, in titles and cells alike

    explicit ListHeader(QWidget* parent);
    ListColumns columns;
};
