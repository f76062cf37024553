// The records of a row, made as they are used.
#include "translator/listview/CIListViewPropriedadeItem.h"

namespace ListView {

namespace {

// As it was made, but for the values: their memory serves again, and that of the key.
void Limpar(CIListViewPropriedadeItem& cell) {
    TQString key = std::move(cell.chave);
    TQStringList values = std::move(cell.valores);
    key.clear();
    cell = {};
    cell.chave = std::move(key);
    cell.valores = std::move(values);
}

}  // namespace

CIListViewPropriedadeItem* CELstPropriedadeSubItem::GetAt(int column) {
    Conferir(column);
    if (!EstaFeita(column)) ParaPorValores(column).valores.clear();
    return Feitas::GetAt(column);
}

CIListViewPropriedadeItem& CELstPropriedadeSubItem::ParaPorValores(int column) {
    Conferir(column);
    if (!EstaFeita(column)) {
        if (column >= Feitas::GetSize()) SetSize(column + 1);
        SetAt(column, &Lugar(column));
    }
    return *Feitas::GetAt(column);
}

bool CELstPropriedadeSubItem::EstaFeita(int column) const {
    return column < Feitas::GetSize() && Feitas::GetAt(column);
}

const CIListViewPropriedadeItem& CELstPropriedadeSubItem::Ver(int column) const {
    static const CIListViewPropriedadeItem unused;
    Conferir(column);
    return EstaFeita(column) ? *Feitas::GetAt(column) : unused;
}

CIListViewPropriedadeItem& CELstPropriedadeSubItem::Lugar(int column) {
    if (static_cast<size_t>(column) >= primeiras.size()) return outras.emplace_front();
    Limpar(primeiras[static_cast<size_t>(column)]);
    return primeiras[static_cast<size_t>(column)];
}

void CELstPropriedadeSubItem::Reiniciar(int columns) {
    colunas = columns;
    SetSize(0);
    outras.clear();
}

void CELstPropriedadeSubItem::Conferir(int column) const {
    if (column < 0 || column >= colunas)
        throw CInvalidArgException("column " + std::to_string(column) + " of a row of " +
                                   std::to_string(colunas) + " cells");
}

}  // namespace ListView
