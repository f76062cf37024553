// How the table dialogs sort: two rows, known by their item data, compared by the text of a column.
#pragma once

#include "platform/window/CListCtrl.h"

// Sorts with that comparison, whose last argument is the column. The texts of the column are taken
// once, so that CompararTextos has them at hand.
void OrdenarPorColuna(CListCtrl& lista, PFNLVCOMPARE comparar, int coluna);

// For the comparison given to OrdenarPorColuna: of the column that is being sorted. Ignores case;
// 0 when a row is not found.
int CompararTextos(const CListCtrl& lista, LPARAM a, LPARAM b, bool crescente);
