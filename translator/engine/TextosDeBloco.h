// The free texts of a block definition: no attributes, no attribute definitions, no nested blocks.
#pragma once

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbAttributeDefinition.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbText.h"

namespace traducaoTQ {

// Calls visita(OdDbTextPtr) for each, opened in that mode, in the order of the block, until it
// returns false. A null block has none.
template <class Visita>
void PercorrerTextos(const OdDbBlockTableRecordPtr& bloco, OdDb::OpenMode modo, Visita visita) {
    if (bloco.isNull()) return;
    for (OdDbObjectIteratorPtr percurso = bloco->newIterator(); !percurso->done();
         percurso->step()) {
        const OdDbTextPtr texto = OdDbText::cast(percurso->entity(modo));
        if (texto.isNull() || texto->isKindOf(OdDbAttribute::desc()) ||
            texto->isKindOf(OdDbAttributeDefinition::desc())) {
            continue;
        }
        if (!visita(texto)) return;
    }
}

}  // namespace traducaoTQ
