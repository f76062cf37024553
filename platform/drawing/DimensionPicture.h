// The block that shows what a dimension looks like.
#pragma once

#include "platform/drawing/DatabaseImpl.h"

// Object index of an anonymous block that belongs to the dimension alone; kNoRecord for another
// entity, and for a dimension that has a place of its own (group 12), whose block may be shared.
uint32_t PictureOf(OdDbDatabaseImpl& database, dxf::RecordIndex entity);
