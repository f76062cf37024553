// Pages as rows of a list: name and description.
#pragma once

#include <string>
#include <vector>

#include "host/Pages.h"

class QString;
class QTreeWidget;
class QTreeWidgetItem;

namespace ui {

// Rows in the order of the pages, in place of those that were there.
void FillPageRows(QTreeWidget& list, const std::vector<host::Page>& pages);
std::u16string PageOfRow(const QTreeWidgetItem& row);
// Hides the rows whose name and description both lack the text, in any case.
void FilterPageRows(QTreeWidget& list, const QString& text);

}  // namespace ui
