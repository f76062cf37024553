// A whole project changes language: every object says what it said in that language before.
#pragma once

#include <optional>
#include <vector>

#include "platform/drawing/DbDictionary.h"
#include "translator/cad/TQString.h"
#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {

// The language switch of the commands, over all layers. The scan flag is handed to the scan, where
// it changes nothing. The project's language is set and the display regenerated also when there was
// nothing to change; an exception leaves both undone, and the objects done so far changed.
void ChangeProjectLanguage(TQString idiomaOriginal, TQString idiomaDestino, bool camadasDePagina);

// Its second half, for objects that may have been chosen in another way. Raises
// OdError_NotThatKindOfClass for records of another class.
class TrocaDeTextos {
  public:
    // Makes the dictionary of all records in a drawing that has none.
    TrocaDeTextos(TQString idiomaOriginal, TQString idiomaDestino);

    // Gives the object the text that is recorded in the destination, and records under the original
    // language what the object said. False, with nothing done, for an object without such a record,
    // and for one whose record is empty or one blank.
    bool Trocar(ETraduzivel& objeto);

    // The same in two steps, for who wants to know what is going to be written.
    struct Registro {
        OdDbDictionaryPtr doObjeto;
        TQString texto;
    };
    std::optional<Registro> RegistroNoDestino(const ETraduzivel& objeto) const;
    void Aplicar(ETraduzivel& objeto, const Registro& registro);

  private:
    TQString original, destino;
    OdDbDictionaryPtr todos;  // null without a current drawing
};

// The text recorded in a language; nothing where there is no record.
std::optional<TQString> TextoRegistrado(const OdDbDictionary& doObjeto, const TQString& idioma);

}  // namespace traducaoTQ
