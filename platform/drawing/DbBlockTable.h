// OdDbBlockTable: the blocks of a drawing, model space and layouts included.
#pragma once

#include "platform/drawing/DbBlockTableRecord.h"

class OdDbBlockTable : public OdDbSymbolTable {
  public:
    ODDB_DECLARE_MEMBERS(OdDbBlockTable);

    OdDbObjectId getModelSpaceId() const;
    OdDbObjectId getAt(const OdString& name, bool getErased = false) const override;

  protected:
    std::vector<OdDbObjectId> records() const override;
};
using OdDbBlockTablePtr = OdSmartPtr<OdDbBlockTable>;
