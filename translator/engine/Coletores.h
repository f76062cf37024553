// The collectors of the scan that add to a list.
#pragma once

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbPolyline.h"
#include "translator/engine/ListaTraduziveis.h"

namespace traducaoTQ {

// The attributes of a block reference. Guarded: raises OdError_NotThatKindOfClass for whatever else
// the id names, with a line in the log.
void ColherAtributos(ListaTraduziveis& lista, OdDbObjectId id);

// A text or an mtext; nothing of any other object.
void ColherTexto(ListaTraduziveis& lista, const OdDbObject& objeto);

// The texts in the block that is referred to.
void ColherBlocoTextos(ListaTraduziveis& lista, const OdDbBlockReference& referencia);

// The strings of a wire.
void ColherFios(ListaTraduziveis& lista, const OdDbPolyline& polilinha);

}  // namespace traducaoTQ
