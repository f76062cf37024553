// The comparison of two list rows.
#include "translator/dialogs/ui/OrdemDeLista.h"

namespace {

int LinhaDoDado(const CListCtrl& lista, LPARAM dado) {
    LVFINDINFO procurado;
    procurado.flags = LVFI_PARAM;
    procurado.lParam = dado;
    return lista.FindItem(&procurado);
}

}  // namespace

int CompararTextos(const CListCtrl& lista, LPARAM a, LPARAM b, int coluna, bool crescente) {
    const int linhaA = LinhaDoDado(lista, a);
    const int linhaB = LinhaDoDado(lista, b);
    if (linhaA < 0 || linhaB < 0) return 0;
    const int ordem =
        lista.GetItemText(linhaA, coluna).CompareNoCase(lista.GetItemText(linhaB, coluna));
    return crescente ? ordem : -ordem;
}
