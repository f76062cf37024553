// OdDbEntity: what stands in the model space, a layout or a block.
#pragma once

#include "platform/drawing/DbObject.h"

class OdDbEntity : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbEntity);

    OdString layer() const;  // the name of the layer's record, whatever the spelling in the entity
    OdDbObjectId layerId() const;
    OdDbObjectId blockId() const { return ownerId(); }
    // Raises OdError_NotOpenForWrite; a redraw is the host's.
    void recordGraphicsModified(bool modified = true) const;
};
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
