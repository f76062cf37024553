// OdDbBlockTableRecord: a block definition, the model space or a layout, with its entities.
#pragma once

#include "platform/drawing/DbIdMapping.h"
#include "platform/drawing/DbObjectIterator.h"
#include "platform/drawing/DbSymbolTable.h"

// Drawings before R13 have no block records; there the view stands on the BLOCK itself, and a model
// space that the file does not name is in memory only.
class OdDbBlockTableRecord : public OdDbSymbolTableRecord {
  public:
    ODDB_DECLARE_MEMBERS(OdDbBlockTableRecord);

    OdString getName() const override;
    // The entities in file order, sorted or not; attributes and vertices belong to their entity and
    // are not met here.
    OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true,
                                      bool sorted = false) const;
    // Appends the entities whose layer has exactly that name (case-sensitive), in the order of
    // newIterator, without erased ones: what a walk that compares OdDbEntity::layer() finds, at the
    // cost of the entities found. The index behind it is made on first use.
    void getEntitiesOnLayer(const OdString& layerName, std::vector<OdDbObjectId>& ids) const;
    bool hasAttributeDefinitions() const;
    bool isAnonymous() const;  // "*U1", "*D3", ...
    bool isLayout() const;     // model space and paper spaces

    // The point of the block that comes to lie where it is inserted.
    OdGePoint3d origin() const;
    void setOrigin(const OdGePoint3d& origin);
    // Appends the references that stand anywhere in the drawing, in file order; with directOnly
    // false also those of blocks that hold one. Looks at every record. Drawings are always read
    // whole, so that forceValidity changes nothing.
    void getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true,
                              bool forceValidity = false) const;
};
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
