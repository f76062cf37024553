// OdDbEntity: what stands in the model space, a layout or a block.
#pragma once

#include <optional>

#include "platform/drawing/DbObject.h"
#include "platform/drawing/GeMatrix3d.h"

// A colour by its number (256 by layer, 0 by block); from R2004 on also a true colour and its name.
struct OdCmColor {
    int colorIndex = 256;
    std::optional<int> rgb;
    OdString name;  // "BOOK$NAME", empty for most
    friend bool operator==(const OdCmColor&, const OdCmColor&) = default;
};

class OdDbEntity : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbEntity);

    OdString layer() const;  // the name of the layer's record, whatever the spelling in the entity
    OdDbObjectId layerId() const;
    OdCmColor color() const;
    OdString linetype() const;  // "BYLAYER" unless the entity says otherwise
    double linetypeScale() const;
    int lineWeight() const;    // in hundredths of a millimetre, -1 by layer
    int transparency() const;  // as drawings write it, 0 by layer

    // Moves, turns, scales or mirrors the entity with its attributes or vertices, and a dimension
    // with its picture. Raises OdError with nothing changed: eCannotScaleNonUniformly for an entity
    // that would have to become one of another type, eNotApplicable for one whose geometry is
    // closed (solids, objects of other programs).
    void transformBy(const OdGeMatrix3d& transformation);
    OdDbObjectId blockId() const { return ownerId(); }
    // Raises OdError_NotOpenForWrite; a redraw is the host's.
    void recordGraphicsModified(bool modified = true) const;
};
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
