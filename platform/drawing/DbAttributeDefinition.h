// OdDbAttributeDefinition: the pattern of an attribute, in a block definition.
#pragma once

#include "platform/drawing/DbText.h"

class OdDbAttributeDefinition : public OdDbText {
  public:
    ODDB_DECLARE_MEMBERS(OdDbAttributeDefinition);

    OdString tag() const;
    OdString prompt() const;
    bool isInvisible() const;
    bool isConstant() const;
    bool isMTextAttributeDefinition() const;
    void setTextString(const OdString& text) override;  // as OdDbAttribute
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
