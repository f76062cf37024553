// OdDbLayerTable: the layers of a drawing.
#pragma once

#include "platform/drawing/DbSymbolTable.h"

// A layer that entities use and no table declares has a record too, in memory only.
class OdDbLayerTableRecord : public OdDbSymbolTableRecord {
  public:
    ODDB_DECLARE_MEMBERS(OdDbLayerTableRecord);

    OdString getName() const override;
    OdString description() const;  // empty for most
    bool isDeclared() const;
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;

// The declared layers in table order, then the others in the order of their first use by an entity
// of the file, under the spelling of that use.
class OdDbLayerTable : public OdDbSymbolTable {
  public:
    ODDB_DECLARE_MEMBERS(OdDbLayerTable);

    OdDbObjectId getAt(const OdString& name, bool getErased = false) const override;

  protected:
    std::vector<OdDbObjectId> records() const override;
};
using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
