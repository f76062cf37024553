// OdDbRegAppTable: the applications that may put xdata into a drawing.
#pragma once

#include "platform/drawing/DbSymbolTable.h"

class OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
  public:
    ODDB_DECLARE_MEMBERS(OdDbRegAppTableRecord);
};
using OdDbRegAppTableRecordPtr = OdSmartPtr<OdDbRegAppTableRecord>;

class OdDbRegAppTable : public OdDbSymbolTable {
  public:
    ODDB_DECLARE_MEMBERS(OdDbRegAppTable);
};
using OdDbRegAppTablePtr = OdSmartPtr<OdDbRegAppTable>;
