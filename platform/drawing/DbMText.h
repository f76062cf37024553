// OdDbMText: a paragraph of text with formatting codes.
#pragma once

#include "platform/drawing/DbEntity.h"

class OdDbMText : public OdDbEntity {
  public:
    ODDB_DECLARE_MEMBERS(OdDbMText);

    OdString contents() const;  // raw, with its formatting codes
    // Replaces the whole contents; nothing is escaped but a line feed, which becomes \P.
    void setContents(const OdString& contents);

    // Of a text that is in no database, as an attribute definition gives it: another such text.
    OdRxObjectPtr clone() const override;

  private:
    friend class OdDbAttribute;
    friend class OdDbAttributeDefinition;

    // While it is in no database: the groups of an embedded object, and what they say.
    std::string groups;
    OdString text;
};
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;
