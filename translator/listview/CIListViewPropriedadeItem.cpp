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
    if (CIListViewPropriedadeItem* made = Feita(*this, column)) return made;
    CIListViewPropriedadeItem& cell = Fazer(column);
    cell.valores.clear();
    return &cell;
}

CIListViewPropriedadeItem& CELstPropriedadeSubItem::ParaPorValores(int column) {
    CIListViewPropriedadeItem* made = Feita(*this, column);
    return made ? *made : Fazer(column);
}

const CIListViewPropriedadeItem& CELstPropriedadeSubItem::Ver(int column) const {
    static const CIListViewPropriedadeItem unused;
    const CIListViewPropriedadeItem* made = Feita(*this, column);
    return made ? *made : unused;
}

template <class Linha>
auto CELstPropriedadeSubItem::Feita(Linha& row, int column) -> decltype(row.primeiras.data()) {
    row.Conferir(column);
    if (column < kPrimeiras) {
        const auto first = static_cast<size_t>(column);
        return row.feitas[first] ? &row.primeiras[first] : nullptr;
    }
    return column < row.Outras::GetSize() ? row.Outras::GetAt(column) : nullptr;
}

CIListViewPropriedadeItem& CELstPropriedadeSubItem::Fazer(int column) {
    if (column >= kPrimeiras) {
        if (column >= Outras::GetSize()) SetSize(column + 1);
        SetAt(column, &outras.emplace_front());
        return outras.front();
    }
    CIListViewPropriedadeItem& cell = primeiras[static_cast<size_t>(column)];
    Limpar(cell);
    feitas.set(static_cast<size_t>(column));
    return cell;
}

void CELstPropriedadeSubItem::Reiniciar(int columns) {
    colunas = columns;
    feitas.reset();
    SetSize(0);
    outras.clear();
}

void CELstPropriedadeSubItem::Conferir(int column) const {
    if (column < 0 || column >= colunas)
        throw CInvalidArgException("column " + std::to_string(column) + " of a row of " +
                                   std::to_string(colunas) + " cells");
}

}  // namespace ListView
