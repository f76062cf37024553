// The origin of blocks, and who refers to them.
#include <algorithm>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/GroupList.h"
#include "platform/drawing/Groups.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

namespace {

constexpr int kOrigin = 10;

std::vector<RecordIndex> referencesOf(OdDbDatabaseImpl& database, uint32_t block) {
    const dxf::Store& store = database.store;
    std::vector<RecordIndex> references;
    for (RecordIndex i = store.First(); i != kNoRecord; i = store.Next(i)) {
        if (store.At(i).type != dxf::RecordType::Insert || database.isErased(i)) continue;
        const auto name = groups::Find(store, i, 2);
        if (name && database.blocks.findRaw(name->value) == block) references.push_back(i);
    }
    return references;
}

}  // namespace

OdGePoint3d OdDbBlockTableRecord::origin() const {
    const RecordIndex begin = core().blocks.definition(objectId().objectIndex()).begin;
    if (begin == kNoRecord) return OdGePoint3d();
    const GroupList groups(core().store, begin);
    const size_t point = groups.find(kOrigin);
    return point == GroupList::npos ? OdGePoint3d() : groups.point(point);
}

void OdDbBlockTableRecord::setOrigin(const OdGePoint3d& origin) {
    OdDbDatabaseImpl& database = editable();
    const RecordIndex begin = database.blocks.definition(objectId().objectIndex()).begin;
    if (begin == kNoRecord) {
        throw OdError(eNotApplicable, u"block " + getName() + u" has no definition of its own");
    }
    GroupList groups(database.store, begin);
    const size_t point = groups.find(kOrigin);
    if (point != GroupList::npos) {
        groups.setPoint(point, origin);
    } else if (!(origin == OdGePoint3d())) {
        const std::string added = groups.newWriter()
                                      .Double(10, origin.x)
                                      .Double(20, origin.y)
                                      .Double(30, origin.z)
                                      .Take();
        const size_t name = groups.find(2);
        groups.insertBefore(name == GroupList::npos ? groups.size() - 1 : name, added);
    }
    groups.apply();
}

void OdDbBlockTableRecord::getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly,
                                                bool) const {
    OdDbDatabaseImpl& database = core();
    std::vector<uint32_t> blocks{objectId().objectIndex()};
    for (size_t i = 0; i < blocks.size(); ++i) {
        for (const RecordIndex reference : referencesOf(database, blocks[i])) {
            ids.append(database.idOf(reference));
            const OdDbObjectId owner = database.ownerOf(reference);
            const auto holder = OdDbBlockTableRecord::cast(owner.openObject());
            if (directOnly || holder.isNull() || holder->isLayout()) continue;
            const bool known = std::count(blocks.begin(), blocks.end(), owner.objectIndex()) > 0;
            if (!known) blocks.push_back(owner.objectIndex());
        }
    }
}
