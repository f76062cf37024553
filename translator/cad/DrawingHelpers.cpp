// The drawing of the active document, and ids that may lead nowhere.
#include "translator/cad/DrawingHelpers.h"

#include "platform/kernel/MxSystemServices.h"

OdDbDatabase* CurrentDatabase() {
    CMxDocument* document = ACTIVE_DOCUMENT();
    return document ? document->GetDwgDatabase() : nullptr;
}

OdDbObjectId IdFromHandle(const OdDbHandle& handle) {
    OdDbDatabase* database = CurrentDatabase();
    return database ? database->getOdDbObjectId(handle) : OdDbObjectId();
}

OdDbHandle HandleOfId(const OdDbObjectId& id) { return id.getHandle(); }

TQString HandleText(const OdDbObjectId& id) { return TQString(id.getHandle()); }

bool IsNullId(const OdDbObjectId& id) { return !id.isValid(); }

bool IsValidId(const OdDbObjectId& id) { return id.isValid(); }

OdDbObjectPtr SafeOpen(const OdDbObjectId& id, OdDb::OpenMode mode, bool openErased) {
    if (!id.database() || !id.isValid()) return nullptr;
    return id.openObject(mode, openErased);
}
