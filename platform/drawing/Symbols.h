// The tables of a drawing by the kind of name that they define.
#pragma once

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/GroupRoles.h"

// Layer, Linetype, TextStyle, DimStyle, Block or Application. (The layers and applications of
// extended data count as such.)
Role SymbolKind(Role role);
// Of a record of a table; Plain for what is none of these.
Role SymbolKindOf(const dxf::Store& store, dxf::RecordIndex record);

// The object index of the record of that name, also of a layer that no table declares; kNoRecord
// for none and for an erased one.
uint32_t FindSymbol(OdDbDatabaseImpl& database, Role kind, const std::u16string& name);

// Puts the record of a symbol behind the last one of its table.
dxf::RecordIndex AddSymbol(OdDbDatabaseImpl& database, Role kind, const OdString& name,
                           std::string bytes);
uint64_t TableHandle(OdDbDatabaseImpl& database, Role kind);  // makes a table that is missing

std::u16string NameOfSymbol(const dxf::Store& store, dxf::RecordIndex record);
