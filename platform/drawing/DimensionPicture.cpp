// The block that shows what a dimension looks like.
#include "platform/drawing/DimensionPicture.h"

#include "platform/drawing/Groups.h"

uint32_t PictureOf(OdDbDatabaseImpl& database, dxf::RecordIndex entity) {
    const dxf::Store& store = database.store;
    const dxf::Record& record = store.At(entity);
    const bool drawn =
        record.section == dxf::Section::Entities || record.section == dxf::Section::Blocks;
    if (!drawn || !store.TypeName(entity).ends_with("DIMENSION")) return dxf::kNoRecord;
    const auto name = groups::Find(store, entity, 2);
    const bool own = name && name->value.starts_with('*') && !groups::Find(store, entity, 12);
    return own ? database.blocks.findRaw(name->value) : dxf::kNoRecord;
}
