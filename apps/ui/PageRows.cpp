// Filling and filtering a list of pages.
#include "apps/ui/PageRows.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTreeWidget>

namespace ui {

namespace {

constexpr int kName = 0, kDescription = 1;

QString Say(const char* text) { return QCoreApplication::translate("PageRows", text); }

}  // namespace

void FillPageRows(QTreeWidget& list, const std::vector<host::Page>& pages) {
    list.clear();
    list.setRootIsDecorated(false);
    list.setUniformRowHeights(true);
    list.setHeaderLabels({Say("Page"), Say("Description")});
    for (const host::Page& page : pages) {
        auto* row = new QTreeWidgetItem(&list);
        row->setText(kName, QString::fromStdU16String(page.name));
        row->setText(kDescription, QString::fromStdU16String(page.description));
        row->setToolTip(kDescription, row->text(kDescription));
    }
    list.resizeColumnToContents(kName);
}

std::u16string PageOfRow(const QTreeWidgetItem& row) { return row.text(kName).toStdU16String(); }

void FilterPageRows(QTreeWidget& list, const QString& text) {
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = list.topLevelItem(i);
        row->setHidden(!row->text(kName).contains(text, Qt::CaseInsensitive) &&
                       !row->text(kDescription).contains(text, Qt::CaseInsensitive));
    }
}

}  // namespace ui
