// OdDbAttribute: a text that a block reference carries under a tag.
#pragma once

#include "platform/drawing/DbText.h"

class OdDbAttribute : public OdDbText {
  public:
    ODDB_DECLARE_MEMBERS(OdDbAttribute);

    OdString tag() const;
    bool isInvisible() const;
    bool isConstant() const;
    bool isMTextAttribute() const;  // has a text of several lines inside
    void setInvisible(bool invisible);
    // Of an attribute with a text of several lines inside, both texts are set.
    void setTextString(const OdString& text) override;
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
