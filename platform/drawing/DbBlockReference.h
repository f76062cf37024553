// OdDbBlockReference: an insertion of a block.
#pragma once

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockTableRecord.h"

class OdDbBlockReference : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbBlockReference);

    OdDbObjectId blockTableRecord() const;  // null when the drawing has no block of that name
    OdString blockName() const;             // as the reference spells it
    // The attributes, in file order; erased ones are passed over.
    OdDbObjectIteratorPtr attributeIterator() const;
    // From the coordinates of the block to the world.
    OdGeMatrix3d blockTransform() const;
    // Puts a new attribute behind the others. The first one gets the flag 66 and the SEQEND that
    // announce and end them. Raises OdError (eStringTooLong) with nothing changed.
    OdDbObjectId appendAttribute(OdDbAttribute* attribute);
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
