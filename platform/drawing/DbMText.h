// OdDbMText: a paragraph of text with formatting codes.
#pragma once

#include "platform/drawing/DbEntity.h"

class OdDbMText : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbMText);

    OdString contents() const;  // raw, with its formatting codes
    // Replaces the whole contents; nothing is escaped but a line feed, which becomes \P.
    void setContents(const OdString& contents);
};
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;
