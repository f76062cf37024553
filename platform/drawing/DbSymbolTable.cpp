// Symbol tables: layers, applications, and what all tables share.
#include "platform/drawing/DbSymbolTable.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/drawing/DbRegAppTable.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTableRecord, OdDbObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTable, OdDbObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbLayerTableRecord, OdDbSymbolTableRecord)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbLayerTable, OdDbSymbolTable)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbRegAppTableRecord, OdDbSymbolTableRecord)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbRegAppTable, OdDbSymbolTable)

OdString OdDbSymbolTableRecord::getName() const { return groups::Text(core().store, record(), 2); }

OdDbSymbolTableIterator::OdDbSymbolTableIterator(std::vector<OdDbObjectId> records)
    : records(std::move(records)) {
    start();
}

void OdDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
    position = atBeginning || records.empty() ? 0 : records.size() - 1;
    skip(atBeginning, skipDeleted);
}

void OdDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
    if (done()) return;
    position += forward ? 1 : -1;  // before the first one is beyond the end
    skip(forward, skipDeleted);
}

void OdDbSymbolTableIterator::skip(bool forward, bool skipDeleted) {
    while (skipDeleted && !done() && records[position].isErased()) position += forward ? 1 : -1;
}

OdDbObjectId OdDbSymbolTableIterator::getRecordId() const {
    return done() ? OdDbObjectId() : records[position];
}

OdDbSymbolTableRecordPtr OdDbSymbolTableIterator::getRecord(OdDb::OpenMode mode,
                                                            bool openErased) const {
    return getRecordId().openObject(mode, openErased);
}

OdDbObjectId OdDbSymbolTable::getAt(const OdString& name, bool getErased) const {
    for (const OdDbObjectId& id : records()) {
        if (!getErased && id.isErased()) continue;
        // A damaged table may hold other objects.
        const auto record = OdDbSymbolTableRecord::cast(id.openObject(OdDb::kForRead, true));
        if (!record.isNull() && record->getName().iCompare(name) == 0) return id;
    }
    return OdDbObjectId();
}

OdDbSymbolTableIteratorPtr OdDbSymbolTable::newIterator(bool atBeginning, bool skipDeleted) const {
    OdDbSymbolTableIteratorPtr iterator(new OdRxObjectImpl<OdDbSymbolTableIterator>(records()));
    iterator->start(atBeginning, skipDeleted);
    return iterator;
}

// The records between the table and its ENDTAB as they stand now; none of a table in memory.
std::vector<OdDbObjectId> OdDbSymbolTable::records() const {
    OdDbDatabaseImpl& database = core();
    const dxf::Store& store = database.store;
    std::vector<OdDbObjectId> ids;
    dxf::RecordIndex i = database.recordOf(objectId().objectIndex());
    if (i == dxf::kNoRecord) return ids;
    for (i = store.Next(i); i != dxf::kNoRecord; i = store.Next(i)) {
        const dxf::RecordType type = store.At(i).type;
        if (type == dxf::RecordType::Endtab || type == dxf::RecordType::Table ||
            type == dxf::RecordType::Endsec) {
            break;
        }
        ids.push_back(database.idOf(i));
    }
    return ids;
}

OdString OdDbLayerTableRecord::getName() const {
    return core().layers.nameOf(objectId().objectIndex());
}

bool OdDbLayerTableRecord::isDeclared() const {
    return core().virtualObject(objectId().objectIndex()) == nullptr;
}

// The second string of the application's data.
OdString OdDbLayerTableRecord::description() const {
    const OdResBufPtr chain = xData(u"AcAecLayerStandard");
    const OdResBufPtr first = chain.isNull() ? chain : chain->next();
    const OdResBufPtr second = first.isNull() ? first : first->next();
    return second.isNull() ? OdString() : second->getString();
}

OdDbObjectId OdDbLayerTable::getAt(const OdString& name, bool getErased) const {
    const uint32_t layer = core().layers.find(name.text());
    const OdDbObjectId id = layer == dxf::kNoRecord ? OdDbObjectId() : core().idOf(layer);
    const bool stands = id.isNull() || getErased || !id.isErased();
    return stands ? id : OdDbSymbolTable::getAt(name);  // a later one of that name
}

std::vector<OdDbObjectId> OdDbLayerTable::records() const {
    std::vector<OdDbObjectId> ids;
    for (const uint32_t index : core().layers.all()) ids.push_back(core().idOf(index));
    return ids;
}
