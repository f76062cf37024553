// Blocks and their entities.
#include "platform/drawing/DbBlockTable.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/text/Conversion.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbBlockTable, OdDbSymbolTable)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbBlockTableRecord, OdDbSymbolTableRecord)

namespace {

class ContentsIterator : public OdDbObjectIterator {
  public:
    ContentsIterator(OdDbDatabaseImpl& database, BlockIndex::Contents contents)
        : database(database), contents(std::move(contents)) {}

    void start(bool atBeginning, bool skipErased) override {
        position = atBeginning || contents->empty() ? 0 : contents->size() - 1;
        skip(atBeginning, skipErased);
    }
    bool done() const override { return position >= contents->size(); }
    void step(bool forward, bool skipErased) override {
        if (done()) return;
        position += forward ? 1 : -1;  // before the first one is beyond the end
        skip(forward, skipErased);
    }
    OdDbObjectId objectId() const override {
        return done() ? OdDbObjectId() : database.idOf((*contents)[position]);
    }

  private:
    void skip(bool forward, bool skipErased) {
        while (skipErased && !done() && database.isErased((*contents)[position])) {
            position += forward ? 1 : -1;
        }
    }

    OdDbDatabaseImpl& database;
    BlockIndex::Contents contents;
    size_t position = 0;
};

}  // namespace

OdDbObjectId OdDbBlockTable::getModelSpaceId() const {
    return core().idOf(core().blocks.modelSpace());
}

OdDbObjectId OdDbBlockTable::getAt(const OdString& name, bool getErased) const {
    const uint32_t block = core().blocks.find(name.text());
    if (block == dxf::kNoRecord) return OdDbObjectId();
    const OdDbObjectId id = core().idOf(block);
    return getErased || !id.isErased() ? id : OdDbObjectId();
}

std::vector<OdDbObjectId> OdDbBlockTable::records() const {
    std::vector<OdDbObjectId> ids;
    for (const uint32_t index : core().blocks.all()) ids.push_back(core().idOf(index));
    return ids;
}

OdString OdDbBlockTableRecord::getName() const {
    return core().blocks.nameOf(objectId().objectIndex());
}

OdDbObjectIteratorPtr OdDbBlockTableRecord::newIterator(bool atBeginning, bool skipDeleted,
                                                        bool) const {
    OdDbDatabaseImpl& database = core();
    OdDbObjectIteratorPtr iterator(new OdRxObjectImpl<ContentsIterator>(
        database, database.blocks.contents(objectId().objectIndex())));
    iterator->start(atBeginning, skipDeleted);
    return iterator;
}

void OdDbBlockTableRecord::getEntitiesOnLayer(const OdString& layerName,
                                              std::vector<OdDbObjectId>& ids) const {
    OdDbDatabaseImpl& database = core();
    for (const auto entity : database.layers.entities(objectId().objectIndex(), layerName)) {
        if (!database.isErased(entity)) ids.push_back(database.idOf(entity));
    }
}

bool OdDbBlockTableRecord::hasAttributeDefinitions() const {
    OdDbDatabaseImpl& database = core();
    for (const auto entity : *database.blocks.contents(objectId().objectIndex())) {
        const bool definition = database.store.At(entity).type == dxf::RecordType::Attdef;
        if (definition && !database.isErased(entity)) return true;
    }
    return false;
}

bool OdDbBlockTableRecord::isLayout() const {
    const std::u16string name = text::FoldCase(getName().text()).substr(0, 12);
    return name == u"*model_space" || name == u"*paper_space" || name == u"$model_space" ||
           name == u"$paper_space";
}

bool OdDbBlockTableRecord::isAnonymous() const {
    return getName().text().starts_with(u'*') && !isLayout();
}
