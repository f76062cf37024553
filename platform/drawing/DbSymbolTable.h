// OdDbSymbolTable and its records: what a drawing has by name (layers, blocks, applications, ...).
#pragma once

#include <vector>

#include "platform/drawing/DbObject.h"

class OdDbSymbolTableRecord : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbSymbolTableRecord);

    virtual OdString getName() const;
};
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;

// A walk over the records of a table, in table order.
class OdDbSymbolTableIterator : public OdRxObject {
  public:
    explicit OdDbSymbolTableIterator(std::vector<OdDbObjectId> records);

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return position >= records.size(); }
    void step(bool forward = true, bool skipDeleted = true);
    OdDbObjectId getRecordId() const;  // null when done
    OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode mode = OdDb::kForRead,
                                       bool openErased = false) const;

  private:
    void skip(bool forward, bool skipDeleted);

    std::vector<OdDbObjectId> records;
    size_t position = 0;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;

// Names are compared without regard to case; of two records with one name the first is found.
class OdDbSymbolTable : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbSymbolTable);

    // Null for none.
    virtual OdDbObjectId getAt(const OdString& name, bool getErased = false) const;
    bool has(const OdString& name) const { return !getAt(name).isNull(); }
    OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;

  protected:
    virtual std::vector<OdDbObjectId> records() const;  // all, erased ones included
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;
