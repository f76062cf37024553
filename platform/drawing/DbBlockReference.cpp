// Block references and polylines.
#include "platform/drawing/DbBlockReference.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbPolyline.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbBlockReference, OdDbEntity)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbPolyline, OdDbEntity)

using dxf::kNoRecord;
using dxf::RecordIndex;

namespace {

// The attributes stand behind their reference, whatever owner they name, up to the first record
// that is none; a missing SEQEND does no harm.
class AttributeIterator : public OdDbObjectIterator {
  public:
    AttributeIterator(OdDbDatabaseImpl& database, RecordIndex reference)
        : database(database), reference(reference) {
        start(true, true);
    }

    void start(bool atBeginning, bool skipErased) override {
        current = store().Next(reference);
        if (!isAttribute(current)) current = kNoRecord;
        if (!atBeginning && current != kNoRecord) {
            while (isAttribute(store().Next(current))) current = store().Next(current);
        }
        skip(atBeginning, skipErased);
    }
    bool done() const override { return current == kNoRecord; }
    void step(bool forward, bool skipErased) override {
        move(forward);
        skip(forward, skipErased);
    }
    OdDbObjectId objectId() const override {
        return done() ? OdDbObjectId() : database.idOf(current);
    }

  private:
    const dxf::Store& store() const { return database.store; }
    bool isAttribute(RecordIndex index) const {
        return index != kNoRecord && store().At(index).type == dxf::RecordType::Attrib;
    }
    void move(bool forward) {
        if (done()) return;
        current = forward ? store().Next(current) : store().Previous(current);
        if (!isAttribute(current)) current = kNoRecord;
    }
    void skip(bool forward, bool skipErased) {
        while (skipErased && !done() && database.isErased(current)) move(forward);
    }

    OdDbDatabaseImpl& database;
    RecordIndex reference;
    RecordIndex current = kNoRecord;
};

}  // namespace

OdDbObjectId OdDbBlockReference::blockTableRecord() const {
    OdDbDatabaseImpl& database = core();
    const auto name = groups::Find(database.store, record(), 2);
    const uint32_t block = name ? database.blocks.findRaw(name->value) : kNoRecord;
    return block == kNoRecord ? OdDbObjectId() : database.idOf(block);
}

OdString OdDbBlockReference::blockName() const { return groups::Text(core().store, record(), 2); }

OdDbObjectIteratorPtr OdDbBlockReference::attributeIterator() const {
    return OdDbObjectIteratorPtr(new OdRxObjectImpl<AttributeIterator>(core(), record()));
}

unsigned OdDbPolyline::numVerts() const {
    const auto count = groups::Find(core().store, record(), 90);
    return count ? static_cast<unsigned>(count->AsInt()) : 0;
}
