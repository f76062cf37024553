// OdDbPolyline: the lightweight polyline. (The polyline with vertices of its own is an OdDbEntity.)
#pragma once

#include "platform/drawing/DbEntity.h"

class OdDbPolyline : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbPolyline);

    unsigned numVerts() const;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
