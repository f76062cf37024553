// OdDbXrecord: an object that holds a chain of values of an application.
#pragma once

#include "platform/drawing/DbObject.h"

class OdDbXrecord : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbXrecord);
    static OdSmartPtr<OdDbXrecord> createObject();  // in no database yet

    OdResBufPtr rbChain() const;  // null when it holds nothing
    // Codes from 1 to 369 but 5 and 105. Raises OdError (eInvalidResBuf, eStringTooLong).
    void setFromRbChain(const OdResBuf* chain);

  protected:
    void writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const override;
    std::string_view newRecordType() const override;

  private:
    OdResBufPtr pending;  // while it is in no database
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
