// The header of a list.
#include "platform/window/qt/ListHeader.h"

#include <QProxyStyle>

namespace {

// The style of the application with titles that begin where the texts below them begin.
class HeaderStyle : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        return metric == PM_HeaderMargin ? ListHeader::kTextMargin
                                         : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

}  // namespace

void ListColumns::Insert(int column, const QString& title, Qt::Alignment alignment) {
    beginInsertColumns({}, column, column);
    columns.insert(columns.begin() + column, {title, alignment});
    endInsertColumns();
}

void ListColumns::Erase(int column) {
    beginRemoveColumns({}, column, column);
    columns.erase(columns.begin() + column);
    endRemoveColumns();
}

QVariant ListColumns::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const Column& column = columns[section];
    if (role == Qt::DisplayRole) return column.title;
    if (role == Qt::TextAlignmentRole) return int(column.alignment | Qt::AlignVCenter);
    return {};
}

ListHeader::ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    constexpr int kNarrowest = 8;  // a column dragged to nothing could not be found again
    auto* style = new HeaderStyle;
    style->setParent(this);
    setStyle(style);
    setModel(&columns);
    setMinimumSectionSize(kNarrowest);
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setFocusPolicy(Qt::NoFocus);
}
