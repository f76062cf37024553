// EObjString: a persistent object that holds one text.
#pragma once

#include "platform/drawing/DbObject.h"

// Stands in the drawing as an XRECORD that begins with the string "EObjString" and holds the text
// in chunks, so that every CAD program keeps it. An XRECORD that begins so is an EObjString.
class EObjString : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(EObjString);
    static OdSmartPtr<EObjString> createObject();  // empty, in no database yet

    // Terminated text, valid until the next getValue or setValue of this object, or its end.
    const char16_t* getValue() const;
    void setValue(const OdString& text);

  protected:
    void writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const override;
    std::string_view newRecordType() const override;

  private:
    mutable OdString value;  // while it is in no database the text itself, then the last one read
};
using EObjStringPtr = OdSmartPtr<EObjString>;
