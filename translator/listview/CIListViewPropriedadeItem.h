// The record of one cell of an editable list, and the data of a row.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <forward_list>

#include "platform/text/CArray.h"
#include "translator/cad/TQStringList.h"

namespace ListView {

// Which cell it is, and so which editor opens over it. Other numbers open none.
enum tipoCelula : int32_t {
    LISTA = 0,             // fixed options
    TEXTO = 1,             //
    ARQUIVO = 3,           // file name without path and ending
    TEXTO_PROPOSTAS = 4,   // free text with proposals
    COR = 5,               // colour number
    ACAO = 6,              // no editor: the listeners are told of the click
    ARQUIVO_COMPLETO = 7,  // full path
};

// Character classes of a text cell; other numbers take every character.
enum formatoTexto : int32_t { DIGITOS = 0, IDENTIFICADOR = 3 };

// The value of a cell; what the list shows is only a copy of it. What a list is filled with stands
// side by side: lists of many rows are bound by the memory that they touch.
struct CIListViewPropriedadeItem {
    TQString chave;        // the owner's key
    TQStringList valores;  // an edit cell has one, a list cell has its options
    int32_t indice = -1;   // present entry of valores
    int32_t indiceAnterior = -1;
    int32_t tipo = -1;     // tipoCelula
    int32_t formato = -1;  // formatoTexto
    int32_t limite = 0;    // longest text
    bool editavel = false;
    bool desabilitado = false;
    bool destaque = false;
    bool negrito = false;
    TQString descricao;         // stays empty: the texts given for it are dropped
    TQStringList complementos;  // right-hand texts of the proposals
    TQStringList reserva;       // nothing fills it
};

// The cells of a row, one for each column that the list had ever had when the row was made. A
// column that is never used again costs nothing: a record is made at its first use.
class CELstPropriedadeSubItem : public CArray<CIListViewPropriedadeItem*> {
  public:
    explicit CELstPropriedadeSubItem(int columns) : colunas(columns) {}
    void Reiniciar(int columns);  // for another row, with the memory of this one

    int GetSize() const { return colunas; }
    bool IsEmpty() const { return colunas == 0; }
    // Never null; a column out of range throws CInvalidArgException.
    CIListViewPropriedadeItem* GetAt(int column);
    // The same, to assign valores at once: what they are before is nobody's business.
    CIListViewPropriedadeItem& ParaPorValores(int column);
    const CIListViewPropriedadeItem& Ver(int column) const;  // as it is, or as it would be made

  private:
    using Outras = CArray<CIListViewPropriedadeItem*>;  // up to the last one made
    static constexpr int kPrimeiras = 3;

    void Conferir(int column) const;
    template <class Linha>  // null while it is not made
    static auto Feita(Linha& row, int column) -> decltype(row.primeiras.data());
    CIListViewPropriedadeItem& Fazer(int column);

    int colunas;
    // The first cells, mostly the only ones, lie in the row itself and keep their memory.
    std::bitset<kPrimeiras> feitas;
    std::array<CIListViewPropriedadeItem, kPrimeiras> primeiras;
    std::forward_list<CIListViewPropriedadeItem> outras;  // owner of what the array points at
};

}  // namespace ListView
