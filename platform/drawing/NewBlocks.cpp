// Blocks and entities that are added to a drawing.
#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/OdError.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

// Ahead of the entities.
RecordIndex OdDbDatabaseImpl::makeBlocksSection() {
    if (!stands(structure.entitiesBegin) || store.Previous(structure.entitiesBegin) == kNoRecord) {
        throw OdError(eNotApplicable, u"the drawing has no section that its blocks could precede");
    }
    return addSection(store.Previous(structure.entitiesBegin), "BLOCKS").end;
}

RecordIndex OdDbDatabaseImpl::addBlockRecord(const NewBlock& block, uint64_t handle) {
    const RecordIndex last = store.Previous(structure.blockRecords.end);
    dxf::GroupWriter writer = store.NewWriter(last);
    writer.String(0, "BLOCK_RECORD").Handle(5, handle).Handle(330, handleOf(blockTable));
    writer.String(100, "AcDbSymbolTableRecord").String(100, "AcDbBlockTableRecord");
    writer.String(2, store.Codec().Encode(block.name.text())).Raw(block.recordGroups);
    return store.InsertAfter(last, writer.Take());
}

// BLOCK and ENDBLK, owned by a record unless that is 0.
BlockIndex::Definition OdDbDatabaseImpl::addDefinition(const NewBlock& block, uint64_t handle,
                                                       uint64_t record) {
    const RecordIndex last = store.Previous(structure.blocksEnd);
    const auto frame = [&](const char* type, const char* subclass, uint64_t ownHandle) {
        dxf::GroupWriter writer = store.NewWriter(last);
        writer.String(0, type);
        if (!writesHandles()) return writer.String(8, "0");
        writer.Handle(5, ownHandle);
        if (record != 0 && writesOwners()) writer.Handle(330, record);
        return writer.String(100, "AcDbEntity").String(8, "0").String(100, subclass);
    };
    const std::string name = store.Codec().Encode(block.name.text());
    dxf::GroupWriter head = frame("BLOCK", "AcDbBlockBegin", handle);
    head.String(2, name).Int(70, block.name.text().starts_with(u'*') ? 1 : 0);
    head.Double(10, block.origin.x).Double(20, block.origin.y).Double(30, block.origin.z);
    head.String(3, name).String(1, "");
    const RecordIndex begin = store.InsertAfter(last, head.Take());
    const uint64_t endHandle = writesHandles() ? newHandle() : 0;
    const RecordIndex end =
        store.InsertAfter(begin, frame("ENDBLK", "AcDbBlockEnd", endHandle).Take());
    if (!writesHandles()) {
        assignMemoryHandle(begin);
        assignMemoryHandle(end);
    }
    return {begin, end};
}

uint32_t OdDbDatabaseImpl::addBlock(const NewBlock& block) {
    if (!stands(structure.blocksEnd)) structure.blocksEnd = makeBlocksSection();
    const uint64_t handle = block.handle || !writesHandles() ? block.handle : newHandle();
    const bool withRecord = writesHandles() && stands(structure.blockRecords.end);
    const RecordIndex record = withRecord ? addBlockRecord(block, handle) : kNoRecord;
    const auto definition =
        addDefinition(block, withRecord ? newHandle() : handle, withRecord ? handle : 0);
    const uint32_t index = withRecord ? record : definition.begin;
    blocks.blockAdded(index, block.name, definition);
    return index;
}

RecordIndex OdDbDatabaseImpl::addEntity(uint32_t block, std::string bytes) {
    const auto [begin, end] = blocks.definition(block);
    RecordIndex behind = end;
    if (block == blocks.modelSpace()) behind = structure.entitiesEnd;
    if (!stands(behind)) {
        throw OdError(eNotApplicable,
                      u"the drawing has no place for entities of block " + blocks.nameOf(block));
    }
    const RecordIndex added = store.InsertAfter(store.Previous(behind), std::move(bytes));
    if (store.At(added).handle == 0) assignMemoryHandle(added);
    blocks.entitiesAdded(block);
    layers.entitiesAdded(block);
    return added;
}
