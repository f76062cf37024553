// OdDbText: a line of text.
#pragma once

#include "platform/drawing/DbEntity.h"

class OdDbText : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbText);

    OdString textString() const;  // decoded, otherwise as it stands
    // Raises OdError (eStringTooLong) beyond 2049 bytes, 255 before R2000. The text that stands
    // there already is not written again.
    virtual void setTextString(const OdString& text);
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
