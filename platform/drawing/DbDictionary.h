// OdDbDictionary: objects by key.
#pragma once

#include <memory>
#include <vector>

#include "platform/drawing/DbObject.h"

class OdDbDictionary;

// A walk over the entries that the dictionary had when the walk began; entries removed since are
// still met, with an id of an erased object.
class OdDbDictionaryIterator : public OdRxObject {
  public:
    struct Entry {
        OdString name;
        OdDbObjectId id;
    };
    explicit OdDbDictionaryIterator(std::vector<Entry> entries) : entries(std::move(entries)) {}

    bool done() const { return position >= entries.size(); }
    bool next();  // false when there is no further entry
    OdString name() const;
    OdDbObjectId objectId() const;
    OdDbObjectPtr getObject(OdDb::OpenMode mode = OdDb::kForRead) const;
    OdDbObjectPtr object(OdDb::OpenMode mode = OdDb::kForRead) const { return getObject(mode); }

  private:
    std::vector<Entry> entries;
    size_t position = 0;
};
using OdDbDictionaryIteratorPtr = OdSmartPtr<OdDbDictionaryIterator>;

// Keys are found without regard to case, as CAD programs find them, and keep the spelling of their
// first coming; of two entries of a file with one key the first counts. Looking up, setting and
// removing cost the same whatever the number of entries.
//
// In a drawing of R12 or older the named objects dictionary is always empty, and setAt raises
// OdError (eNoDictionaries) with nothing changed.
class OdDbDictionary : public OdDbObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbDictionary);
    static OdSmartPtr<OdDbDictionary> createObject();  // in no database until setAt puts it there

    OdDbObjectPtr getAt(const OdString& key, OdDb::OpenMode mode) const;  // null for none
    OdDbObjectId getAt(const OdString& key) const;
    bool has(const OdString& key) const { return !getAt(key).isNull(); }
    bool has(const OdDbObjectId& id) const;
    OdString nameAt(const OdDbObjectId& id) const;  // empty for none; looks at every entry
    unsigned numEntries() const;
    OdDbDictionaryIteratorPtr newIterator(OdRx::DictIterType type = OdRx::kDictCollated) const;

    // Puts a new object, which is in no database yet, under the key, or one that the dictionary
    // owns already. The object that stood there is erased. Raises OdError (eInvalidInput) for
    // others.
    OdDbObjectId setAt(const OdString& key, OdDbObject* object);
    // Erases the entry and its object; the id of that object, null when there was none.
    OdDbObjectId remove(const OdString& key);
    bool isTreatElementsAsHard() const;

  protected:
    void writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const override;
    std::string_view newRecordType() const override;

  private:
    void eraseFormer(const OdDbObjectId& id);
};
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
