// OdDbAttributeDefinition: the pattern of an attribute, in a block definition.
#pragma once

#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbText.h"

class OdDbAttributeDefinition : public OdDbText {
  public:
    ODDB_DECLARE_MEMBERS(OdDbAttributeDefinition);

    OdString tag() const;
    OdString prompt() const;
    bool isInvisible() const;
    bool isConstant() const;
    bool isMTextAttributeDefinition() const;
    int fieldLength() const;
    int verticalMode() const override;
    // The text of several lines inside, in no database; null when there is none.
    OdDbMTextPtr getMTextAttributeDefinition() const;
    void setTextString(const OdString& text) override;  // as OdDbAttribute
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
