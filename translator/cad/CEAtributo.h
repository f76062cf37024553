// tq::CEAtributo: an attribute as it was read from a block reference, and lists of them.
#pragma once

#include "platform/drawing/DbObjectId.h"
#include "platform/text/CArray.h"
#include "platform/text/CObject.h"
#include "translator/cad/TQString.h"

namespace tq {

class CEAtributo {
  public:
    CEAtributo(TQString tag, TQString prompt, TQString valor, OdDbObjectId id, bool constante)
        : tag(std::move(tag)),
          prompt(std::move(prompt)),
          valor(std::move(valor)),
          id(id),
          constante(constante) {}

    TQString GetTag() const { return tag; }
    TQString GetValor() const { return valor; }
    OdDbObjectId GetId() const { return id; }
    bool GetConstante() const { return constante; }

    TQString tag;
    TQString prompt;  // empty if prompts were not asked for
    TQString valor;
    TQString reserved;  // always empty
    OdDbObjectId id;
    bool constante;
};

// In the order of the reference. Frees the array and not the records.
class CEListaAtributos : public CObject, public CArray<CEAtributo*> {
    DECLARE_DYNAMIC(CEListaAtributos)
};

}  // namespace tq
