// What all views share: identity, open modes, xdata.
#include "platform/drawing/DbObject.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/XData.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbObject, OdRxObject)

OdDbObject::~OdDbObject() = default;

void OdDbObject::release() {
    if (--references > 0) return;
    if (owner) owner->forget(*this);
    delete this;
}

OdDbDatabaseImpl& OdDbObject::core() const {
    if (!owner) throw OdError(eNoDatabase);
    return *owner;
}

dxf::RecordIndex OdDbObject::record() const {
    const dxf::RecordIndex found = core().recordOf(index);
    if (found == dxf::kNoRecord) {
        throw OdError(eNotApplicable,
                      OdString(u"object ") + getDbHandle().ascii() +
                          u" stands in memory only; the drawing has no such object");
    }
    return found;
}

OdDbDatabaseImpl& OdDbObject::editable() const {
    OdDbDatabaseImpl& database = core();
    if (!isWriteEnabled()) {
        throw OdError_NotOpenForWrite(OdString(u"object ") + getDbHandle().ascii() + u" (" +
                                      dxfName() + u")");
    }
    database.checkEditable();
    return database;
}

OdDbObjectId OdDbObject::objectId() const { return owner ? owner->idOf(index) : OdDbObjectId(); }

OdDbObjectId OdDbObject::ownerId() const { return core().ownerOf(index); }

OdDbDatabase* OdDbObject::database() const { return owner ? &owner->owner : nullptr; }

OdString OdDbObject::dxfName() const {
    if (!owner) return OdString(std::string(newRecordType()).c_str());
    const dxf::RecordIndex found = owner->recordOf(index);
    if (found == dxf::kNoRecord) return isA()->name();
    return groups::Decode(owner->store, owner->store.TypeName(found));
}

bool OdDbObject::isErased() const { return owner && owner->isErased(index); }

void OdDbObject::erase(bool erasing) {
    OdDbDatabaseImpl& database = editable();
    const dxf::RecordIndex erased = record();
    erasing ? database.erase(erased) : database.unerase(erased);
}

void OdDbObject::upgradeOpen() {
    core();
    mode = OdDb::kForWrite;
}

void OdDbObject::downgradeOpen() { mode = OdDb::kForRead; }

void OdDbObject::assertWriteEnabled(bool, bool) const {
    if (owner) editable();
}

OdResBufPtr OdDbObject::xData(const OdString& application) const {
    OdDbDatabaseImpl& database = core();
    const dxf::RecordIndex found = database.recordOf(index);
    if (found == dxf::kNoRecord) return OdResBufPtr();
    return ReadXData(database.store, found, application);
}

void OdDbObject::setXData(const OdResBuf* chain) {
    OdDbDatabaseImpl& database = editable();
    WriteXData(database, record(), chain);
}

void OdDbObject::writeNew(const OdDbDatabaseImpl&, dxf::GroupWriter&) const {
    throw OdError(eNotApplicable, isA()->name() + u" cannot be put into a drawing");
}

std::string_view OdDbObject::newRecordType() const { return ""; }
