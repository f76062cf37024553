// Entities: their layer, and the walk over them.
#include "platform/drawing/DbEntity.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbObjectIterator.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/Transform.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbEntity, OdDbObject)

OdString OdDbEntity::layer() const {
    OdDbDatabaseImpl& database = core();
    return database.layers.nameOf(database.layers.layerOf(record()));
}

OdDbObjectId OdDbEntity::layerId() const {
    OdDbDatabaseImpl& database = core();
    return database.idOf(database.layers.layerOf(record()));
}

namespace {

int numberOf(const dxf::Store& store, dxf::RecordIndex record, int code, int absent) {
    const auto group = groups::Find(store, record, code);
    return group ? static_cast<int>(group->AsInt()) : absent;
}

}  // namespace

OdCmColor OdDbEntity::color() const {
    const dxf::Store& store = core().store;
    OdCmColor color;
    color.colorIndex = numberOf(store, record(), 62, color.colorIndex);
    if (const auto rgb = groups::Find(store, record(), 420)) {
        color.rgb = static_cast<int>(rgb->AsInt());
    }
    color.name = groups::Text(store, record(), 430);
    return color;
}

OdString OdDbEntity::linetype() const {
    const OdString name = groups::Text(core().store, record(), 6);
    return name.isEmpty() ? OdString(u"BYLAYER") : name;
}

double OdDbEntity::linetypeScale() const {
    const auto scale = groups::Find(core().store, record(), 48);
    return scale ? scale->AsDouble() : 1;
}

int OdDbEntity::lineWeight() const { return numberOf(core().store, record(), 370, -1); }
int OdDbEntity::transparency() const { return numberOf(core().store, record(), 440, 0); }

void OdDbEntity::transformBy(const OdGeMatrix3d& transformation) {
    TransformEntity(editable(), record(), transformation);
}

void OdDbEntity::recordGraphicsModified(bool) const { assertWriteEnabled(); }

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const {
    return objectId().openObject(mode, openErased);
}
