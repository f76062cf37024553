// OdDbBlockReference: an insertion of a block.
#pragma once

#include "platform/drawing/DbObjectIterator.h"

class OdDbBlockReference : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbBlockReference);

    OdDbObjectId blockTableRecord() const;  // null when the drawing has no block of that name
    OdString blockName() const;             // as the reference spells it
    // The attributes, in file order; erased ones are passed over.
    OdDbObjectIteratorPtr attributeIterator() const;
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
