// Entities: their layer, and the walk over them.
#include "platform/drawing/DbEntity.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbObjectIterator.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbEntity, OdDbObject)

OdString OdDbEntity::layer() const {
    OdDbDatabaseImpl& database = core();
    return database.layers.nameOf(database.layers.layerOf(record()));
}

OdDbObjectId OdDbEntity::layerId() const {
    OdDbDatabaseImpl& database = core();
    return database.idOf(database.layers.layerOf(record()));
}

void OdDbEntity::recordGraphicsModified(bool) const { assertWriteEnabled(); }

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const {
    return objectId().openObject(mode, openErased);
}
