// The record of one cell of an editable list, and the data of a row.
#pragma once

#include <cstdint>
#include <memory>

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

// The value of a cell; what the list shows is only a copy of it.
struct CIListViewPropriedadeItem {
    TQString chave;             // the owner's key
    TQString descricao;         // stays empty: the texts given for it are dropped
    TQStringList valores;       // an edit cell has one, a list cell has its options
    TQStringList complementos;  // right-hand texts of the proposals
    TQStringList reserva;       // nothing fills it
    int32_t indice = -1;        // present entry of valores
    int32_t indiceAnterior = -1;
    int32_t tipo = -1;  // tipoCelula
    bool editavel = false;
    int32_t formato = -1;  // formatoTexto
    int32_t limite = 0;    // longest text
    bool desabilitado = false;
    bool destaque = false;
    bool negrito = false;
};

// The cells of a row in column order. The array points at records that the row itself owns.
class CELstPropriedadeSubItem : public CArray<CIListViewPropriedadeItem*> {
  public:
    explicit CELstPropriedadeSubItem(int columns)
        : celulas(std::make_unique<CIListViewPropriedadeItem[]>(columns)) {
        for (int column = 0; column < columns; ++column) Add(&celulas[column]);
    }

  private:
    std::unique_ptr<CIListViewPropriedadeItem[]> celulas;
};

}  // namespace ListView
