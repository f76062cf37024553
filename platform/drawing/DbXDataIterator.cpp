// The walk over extended data.
#include "platform/drawing/DbXDataIterator.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/ResBufChain.h"
#include "platform/drawing/XData.h"

OdDbXDataIterator::OdDbXDataIterator(const OdDbObject& object, const OdString& application)
    : object(object) {
    if (!object.database()) return;
    OdDbDatabaseImpl& database = object.database()->impl();
    index = database.recordOf(object.objectId().objectIndex());
    if (index == dxf::kNoRecord) return;
    const XDataPlace place = FindXData(database.store, index, application);
    end = place.end;
    store = &database.store;
    reader = store->Groups(index, place.begin);
    next();
}

void OdDbXDataIterator::next() {
    const int former = group.code;
    do {
        if (!reader.Next(group) || group.begin >= end) {
            store = nullptr;
            return;
        }
    } while (group.code == 999 || IsCoordinateOf(former, group.code));
}

OdString OdDbXDataIterator::getString() const {
    return group.IsString() ? OdString(store->Codec().Decode(group.value)) : OdString();
}

void OdDbXDataIterator::setString(const OdString& text) {
    object.assertWriteEnabled();
    if (!group.IsString()) {
        throw OdError(eInvalidResBuf, OdString(u"object ") + object.getDbHandle().ascii() +
                                          u": an entry without text takes none");
    }
    const bool handle = group.code == OdResBuf::kDxfXdHandle;
    const std::string encoded =
        store->Codec().Encode((handle ? OdDbHandle(text.c_str()).ascii() : text).text());
    CheckXDataLength(*store, index, encoded.size());
    store->ReplaceValue(index, group, encoded);
    store = nullptr;
}
