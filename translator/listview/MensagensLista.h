// The registered messages between an editable list, its editors and its parent.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/window/CWnd.h"
#include "translator/cad/TQString.h"

namespace ListView {

// From the list to its parent, as notification codes of WM_COMMAND (the lower 16 bits).
extern const UINT WM_LIST_PROPRIEDADE_BEGINEDIT;
extern const UINT WM_LIST_PROPRIEDADE_ENDEDIT;
extern const UINT WM_LIST_PROPRIEDADE_SELCHANGE;

// From an editor to its list; the last parameter is a record that the list releases.
extern const UINT WM_EDIT_ENDEDIT;      // structFimTexto
extern const UINT WM_COMBO_ENDEDIT;     // structFimIndice
extern const UINT WM_COMBO_SELCHANGE;   // structFimIndice
extern const UINT WM_FINDFILE_ENDEDIT;  // structFimTexto
extern const UINT WM_COLOR_ENDEDIT;     // structFimTexto

struct structFimTexto {
    int32_t row;
    int32_t col;
    TQString texto;
};

struct structFimIndice {
    int32_t row;
    int32_t col;
    int32_t indice;
};

// Returns when the list has dealt with it. A null list drops the record.
template <class Registro>
void EnviarRegistro(CWnd* list, UINT message, std::unique_ptr<Registro> record) {
    if (list) list->SendMessage(message, 0, reinterpret_cast<LPARAM>(record.release()));
}

// The other end: what EnviarRegistro sent.
template <class Registro>
std::unique_ptr<Registro> ReceberRegistro(LPARAM record) {
    return std::unique_ptr<Registro>(reinterpret_cast<Registro*>(record));
}

}  // namespace ListView
