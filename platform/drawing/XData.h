// Extended data: the groups from 1001 on at the end of a record, headed by application names.
#pragma once

#include "platform/drawing/ResBuf.h"
#include "platform/drawing/dxf/Store.h"

class OdDbDatabaseImpl;

// Those of an application (found without regard to case), or all with an empty name; null for none.
OdResBufPtr ReadXData(const dxf::Store& store, dxf::RecordIndex index, const OdString& application);

// Where the data of an application stand in a record; end is 0 for none.
struct XDataPlace {
    uint32_t begin = 0, end = 0;
};
XDataPlace FindXData(const dxf::Store& store, dxf::RecordIndex index, const OdString& application);

// Raises OdError (eStringTooLong) for a string of more bytes than extended data take.
void CheckXDataLength(const dxf::Store& store, dxf::RecordIndex index, size_t bytes);

// See OdDbObject::setXData.
void WriteXData(OdDbDatabaseImpl& database, dxf::RecordIndex index, const OdResBuf* chain);
