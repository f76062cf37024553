// The records of a row, made as they are used.
#include "translator/listview/CIListViewPropriedadeItem.h"

#include <algorithm>

namespace ListView {

namespace {

void Limpar(CIListViewPropriedadeItem& cell) {
    TQString key = std::move(cell.chave);  // its memory serves again
    key.clear();
    cell = {};
    cell.chave = std::move(key);
}

}  // namespace

CIListViewPropriedadeItem* CELstPropriedadeSubItem::GetAt(int column) {
    Conferir(column);
    if (column >= Feitas::GetSize() || !Feitas::GetAt(column)) Fazer(column);
    return Feitas::GetAt(column);
}

const CIListViewPropriedadeItem& CELstPropriedadeSubItem::Ver(int column) const {
    static const CIListViewPropriedadeItem unused;
    Conferir(column);
    const CIListViewPropriedadeItem* cell =
        column < Feitas::GetSize() ? Feitas::GetAt(column) : nullptr;
    return cell ? *cell : unused;
}

void CELstPropriedadeSubItem::Fazer(int column) {
    const int first = column - column % kBloco;
    SetSize(std::max(Feitas::GetSize(), first + kBloco));
    Bloco& made = primeiroFeito ? outros.emplace_front() : primeiro;
    primeiroFeito = true;
    for (int i = 0; i < kBloco; ++i) SetAt(first + i, &made[static_cast<size_t>(i)]);
}

void CELstPropriedadeSubItem::Reiniciar(int columns) {
    colunas = columns;
    SetSize(0);
    if (primeiroFeito) std::for_each(primeiro.begin(), primeiro.end(), Limpar);
    primeiroFeito = false;
    outros.clear();
}

void CELstPropriedadeSubItem::Conferir(int column) const {
    if (column < 0 || column >= colunas)
        throw CInvalidArgException("column " + std::to_string(column) + " of a row of " +
                                   std::to_string(colunas) + " cells");
}

}  // namespace ListView
