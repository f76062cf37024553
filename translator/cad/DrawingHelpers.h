// The glue around object ids and the drawing of the active document.
#pragma once

#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbObjectId.h"
#include "translator/cad/TQString.h"

// Null without an active document, or when it has no drawing.
OdDbDatabase* CurrentDatabase();

// The id in the current database; the null id without one.
OdDbObjectId IdFromHandle(const OdDbHandle& handle);
OdDbHandle HandleOfId(const OdDbObjectId& id);
TQString HandleText(const OdDbObjectId& id);

bool IsNullId(const OdDbObjectId& id);
bool IsValidId(const OdDbObjectId& id);

// Null, without an exception, for an id that is not valid or has no database.
OdDbObjectPtr SafeOpen(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead,
                       bool openErased = false);
