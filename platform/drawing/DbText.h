// OdDbText: a line of text.
#pragma once

#include "platform/drawing/DbEntity.h"

class OdDbText : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbText);

    virtual OdString textString() const;  // decoded, otherwise as it stands
    double height() const;
    double rotation() const;  // in degrees
    OdString textStyle() const;
    OdGeVector3d normal() const;
    double thickness() const;
    double widthFactor() const;
    int horizontalMode() const;        // as drawings number them: 0 left, 1 centre, 2 right, ...
    virtual int verticalMode() const;  // 0 base line, 1 bottom, 2 middle, 3 top
    // Raises OdError (eStringTooLong) beyond 2049 bytes, 255 before R2000. The text that stands
    // there already is not written again.
    virtual void setTextString(const OdString& text);
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
