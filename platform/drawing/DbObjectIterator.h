// OdDbObjectIterator: a walk over entities.
#pragma once

#include "platform/drawing/DbEntity.h"

// Stands before no entity once done. Valid while the database lives; objects that are erased during
// the walk are passed over, objects that are added may or may not be met.
class OdDbObjectIterator : public OdRxObject {
  public:
    virtual void start(bool atBeginning = true, bool skipErased = true) = 0;
    virtual bool done() const = 0;
    virtual void step(bool forward = true, bool skipErased = true) = 0;
    virtual OdDbObjectId objectId() const = 0;  // null when done

    // The entity opened; null when done. Raises OdError_NotThatKindOfClass for what is no entity.
    OdDbEntityPtr entity(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
};
using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;
