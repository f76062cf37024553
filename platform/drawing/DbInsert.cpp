// Inserting a drawing as a block, and cloning of objects.
#include "platform/drawing/Clone.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbEntity.h"
#include "platform/drawing/Groups.h"

using dxf::RecordIndex;

namespace {

std::vector<RecordIndex> standingEntities(OdDbDatabaseImpl& drawing, uint32_t block) {
    std::vector<RecordIndex> entities;
    for (const RecordIndex entity : *drawing.blocks.contents(block)) {
        if (!drawing.isErased(entity)) entities.push_back(entity);
    }
    return entities;
}

// $INSBASE: the point of a drawing that comes to lie where it is inserted.
OdGePoint3d basePointOf(const dxf::Store& store) {
    OdGePoint3d point;
    for (RecordIndex i = store.First(); i != dxf::kNoRecord; i = store.Next(i)) {
        if (store.At(i).section != dxf::Section::Header) continue;
        auto reader = store.Groups(i);
        bool inside = false;
        for (dxf::Group group; reader.Next(group);) {
            if (group.code == 9) inside = group.value.starts_with("$INSBASE");
            if (!inside) continue;
            if (group.code == 10) point.x = group.AsDouble();
            if (group.code == 20) point.y = group.AsDouble();
            if (group.code == 30) point.z = group.AsDouble();
        }
        break;
    }
    return point;
}

}  // namespace

OdDbObjectId OdDbDatabase::insert(const OdString& blockName, OdDbDatabase* source, bool) {
    if (!source || source == this) {
        throw OdError(eInvalidInput, u"a block is made from another drawing, and none was given");
    }
    core->checkEditable();
    if (blockName.isEmpty()) throw OdError(eInvalidInput, u"a block needs a name");
    if (FindSymbol(*core, Role::Block, blockName.text()) != dxf::kNoRecord) {
        throw OdError(eDuplicateKey, u"the drawing has a block " + blockName + u" already");
    }
    OdDbDatabaseImpl& from = source->impl();
    const uint32_t space = from.blocks.modelSpace();
    const uint64_t handle = core->writesHandles() ? core->newHandle() : 0;
    Clone clone(from, *core);
    clone.Plan(standingEntities(from, space), handle);
    const uint32_t block = core->addBlock({blockName, basePointOf(from.store), handle, {}});
    clone.Write(block);
    return core->idOf(block);
}

void OdDbDatabase::deepCloneObjects(const OdDbObjectIdArray& ids, const OdDbObjectId& owner,
                                    OdDbIdMapping& mapping, bool) {
    if (owner.database() != this || !core->blocks.isBlockRecord(owner.objectIndex())) {
        throw OdError(eInvalidInput, u"entities are cloned into a block of the drawing");
    }
    if (ids.isEmpty()) return;
    OdDbDatabase* source = ids[0].database();
    std::vector<RecordIndex> entities;
    for (const OdDbObjectId& id : ids) {
        if (id.isNull() || id.database() != source || id.isErased()) {
            throw OdError(eInvalidInput, u"the objects to clone must stand in one drawing");
        }
        const OdDbEntityPtr entity = id.openObject();  // raises for what is no entity
        entities.push_back(source->impl().recordOf(id.objectIndex()));
    }
    mapping.setDestDb(this);
    Clone clone(source->impl(), *core);
    clone.Plan(entities, owner.getHandle());
    clone.Write(owner.objectIndex());
    clone.Report(mapping);
}
