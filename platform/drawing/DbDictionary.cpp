// Dictionaries.
#include "platform/drawing/DbDictionary.h"

#include "platform/drawing/DatabaseImpl.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbDictionary, OdDbObject)

namespace {

// Null for a dictionary that stands in memory only, and for one that is in no drawing yet.
DictionaryEntries* entriesOf(const OdDbDictionary& dictionary) {
    if (!dictionary.database()) return nullptr;
    OdDbDatabaseImpl& database = dictionary.database()->impl();
    const dxf::RecordIndex record = database.recordOf(dictionary.objectId().objectIndex());
    return record == dxf::kNoRecord ? nullptr : &database.dictionaries.entries(record);
}

}  // namespace

bool OdDbDictionaryIterator::next() {
    if (!done()) ++position;
    return !done();
}

OdString OdDbDictionaryIterator::name() const {
    return done() ? OdString() : entries[position].name;
}

OdDbObjectId OdDbDictionaryIterator::objectId() const {
    return done() ? OdDbObjectId() : entries[position].id;
}

OdDbObjectPtr OdDbDictionaryIterator::getObject(OdDb::OpenMode mode) const {
    return objectId().openObject(mode);
}

OdDbObjectId OdDbDictionary::getAt(const OdString& key) const {
    if (!database()) return OdDbObjectId();
    OdDbDatabaseImpl& drawing = core();
    const dxf::RecordIndex record = drawing.recordOf(objectId().objectIndex());
    if (record == dxf::kNoRecord) return OdDbObjectId();
    return drawing.idOfHandle(drawing.dictionaries.find(record, key.text()));
}

OdDbObjectPtr OdDbDictionary::getAt(const OdString& key, OdDb::OpenMode mode) const {
    return getAt(key).openObject(mode);
}

OdString OdDbDictionary::nameAt(const OdDbObjectId& id) const {
    const DictionaryEntries* entries = entriesOf(*this);
    if (!entries || id.isNull()) return OdString();
    const auto* entry = entries->findHandle(id.getHandle());
    return entry ? OdString(entry->name) : OdString();
}

bool OdDbDictionary::has(const OdDbObjectId& id) const {
    const DictionaryEntries* entries = entriesOf(*this);
    return entries && !id.isNull() && entries->findHandle(id.getHandle());
}

unsigned OdDbDictionary::numEntries() const {
    const DictionaryEntries* entries = entriesOf(*this);
    return entries ? static_cast<unsigned>(entries->count()) : 0;
}

bool OdDbDictionary::isTreatElementsAsHard() const {
    const DictionaryEntries* entries = entriesOf(*this);
    return entries && entries->hardOwner();
}

OdDbDictionaryIteratorPtr OdDbDictionary::newIterator(OdRx::DictIterType type) const {
    std::vector<OdDbDictionaryIterator::Entry> met;
    if (const DictionaryEntries* entries = entriesOf(*this)) {
        for (const auto* entry : entries->standing(type == OdRx::kDictSorted)) {
            met.push_back({OdString(entry->name), core().idOfHandle(entry->handle)});
        }
    }
    return OdDbDictionaryIteratorPtr(new OdRxObjectImpl<OdDbDictionaryIterator>(std::move(met)));
}

OdDbObjectId OdDbDictionary::setAt(const OdString& key, OdDbObject* object) {
    OdDbDatabaseImpl& database = editable();
    if (!object) throw OdError(eInvalidInput, u"a dictionary takes no null object");
    const bool root = objectId() == database.owner.getNamedObjectsDictionaryId();
    const dxf::RecordIndex here = root ? database.rootDictionaryForWrite() : record();
    const OdDbObjectId former = getAt(key);
    if (!object->database()) {
        const dxf::RecordIndex added = database.addObject(
            object->newRecordType(), database.store.At(here).handle,
            [&](dxf::GroupWriter& writer) { object->writeNew(database, writer); });
        database.adopt(*object, added);
    } else if (object->database() != &database.owner || object->ownerId() != objectId()) {
        throw OdError(eInvalidInput, u"the object belongs to another owner already");
    }
    database.dictionaries.entries(here).set(key.text(), object->getDbHandle());
    if (former != object->objectId()) eraseFormer(former);
    return object->objectId();
}

OdDbObjectId OdDbDictionary::remove(const OdString& key) {
    OdDbDatabaseImpl& database = editable();
    DictionaryEntries* entries = entriesOf(*this);
    const auto* entry = entries ? entries->find(key.text()) : nullptr;
    if (!entry) return OdDbObjectId();
    const OdDbObjectId id = database.idOfHandle(entry->handle);
    entries->remove(key.text());
    eraseFormer(id);
    return id;
}

// The object of an entry that has gone. An object that another one owns only loses the entry.
void OdDbDictionary::eraseFormer(const OdDbObjectId& id) {
    if (id.isNull() || core().ownerOf(id.objectIndex()) != objectId()) return;
    core().eraseOwned(id.objectIndex());
}

void OdDbDictionary::writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const {
    WriteNewDictionary(database.store, writer);
}

std::string_view OdDbDictionary::newRecordType() const { return "DICTIONARY"; }
