// Extended data: the groups from 1001 on at the end of a record, headed by application names.
#pragma once

#include "platform/drawing/ResBuf.h"
#include "platform/drawing/dxf/Store.h"

class OdDbDatabaseImpl;

// Those of an application (found without regard to case), or all with an empty name; null for none.
OdResBufPtr ReadXData(const dxf::Store& store, dxf::RecordIndex index, const OdString& application);

// See OdDbObject::setXData.
void WriteXData(OdDbDatabaseImpl& database, dxf::RecordIndex index, const OdResBuf* chain);
