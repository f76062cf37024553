// Records that are added to a drawing.
#pragma once

#include "platform/drawing/DatabaseImpl.h"

template <class Body>
dxf::RecordIndex OdDbDatabaseImpl::addObject(std::string_view type, uint64_t ownerHandle,
                                             const Body& body) {
    return addObjectBehind(lastObject(), type, ownerHandle, body);
}

template <class Body>
dxf::RecordIndex OdDbDatabaseImpl::addObjectBehind(dxf::RecordIndex where, std::string_view type,
                                                   uint64_t ownerHandle, const Body& body) {
    dxf::GroupWriter writer = store.NewWriter(where);
    writer.String(0, type).Handle(5, newHandle()).Handle(330, ownerHandle);
    body(writer);
    return store.InsertAfter(where, writer.Take());
}
