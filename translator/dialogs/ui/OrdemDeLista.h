// How the table dialogs sort: two rows, known by their item data, compared by the text of a column.
#pragma once

#include "platform/window/CListCtrl.h"

// Ignores case; 0 when a row is not found.
int CompararTextos(const CListCtrl& lista, LPARAM a, LPARAM b, int coluna, bool crescente);
