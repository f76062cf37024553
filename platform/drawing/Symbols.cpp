// Looking up and adding the records of tables.
#include "platform/drawing/Symbols.h"

#include "platform/drawing/Groups.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

namespace {

struct TableRow {
    Role kind;
    std::string_view record, table;
    DrawingStructure::Table DrawingStructure::*member;
};
constexpr TableRow kTables[] = {
    {Role::Layer, "LAYER", "LAYER", &DrawingStructure::layers},
    {Role::Linetype, "LTYPE", "LTYPE", &DrawingStructure::linetypes},
    {Role::TextStyle, "STYLE", "STYLE", &DrawingStructure::textStyles},
    {Role::DimStyle, "DIMSTYLE", "DIMSTYLE", &DrawingStructure::dimStyles},
    {Role::Application, "APPID", "APPID", &DrawingStructure::applications},
    {Role::Block, "BLOCK_RECORD", "BLOCK_RECORD", &DrawingStructure::blockRecords},
};

const TableRow& rowOf(Role kind) {
    for (const TableRow& row : kTables) {
        if (row.kind == kind) return row;
    }
    throw OdError(eInvalidInput, u"no table defines names of that kind");
}

}  // namespace

Role SymbolKind(Role role) { return role == Role::DataLayer ? Role::Layer : role; }

Role SymbolKindOf(const dxf::Store& store, RecordIndex record) {
    if (store.At(record).section != dxf::Section::Tables) return Role::Plain;
    for (const TableRow& row : kTables) {
        if (row.record == store.TypeName(record)) return row.kind;
    }
    return Role::Plain;
}

std::u16string NameOfSymbol(const dxf::Store& store, RecordIndex record) {
    return groups::Text(store, record, 2).text();
}

uint32_t FindSymbol(OdDbDatabaseImpl& database, Role kind, const std::u16string& name) {
    const dxf::Store& store = database.store;
    if (kind == Role::Block || kind == Role::Layer) {
        const uint32_t found =
            kind == Role::Block ? database.blocks.find(name) : database.layers.find(name);
        return found == kNoRecord || database.isErased(found) ? kNoRecord : found;
    }
    const RecordIndex table = (database.structure.*rowOf(kind).member).table;
    if (table == kNoRecord) return kNoRecord;
    for (RecordIndex i = store.Next(table); i != kNoRecord; i = store.Next(i)) {
        if (SymbolKindOf(store, i) != kind) break;
        if (!database.isErased(i) && text::CompareNoCase(NameOfSymbol(store, i), name) == 0) {
            return i;
        }
    }
    return kNoRecord;
}

RecordIndex AddSymbol(OdDbDatabaseImpl& database, Role kind, const OdString& name,
                      std::string bytes) {
    const TableRow& row = rowOf(kind);
    const RecordIndex last = database.lastOf(database.structure.*row.member, row.table);
    const RecordIndex added = database.store.InsertAfter(last, std::move(bytes));
    if (database.store.At(added).handle == 0) database.assignMemoryHandle(added);
    if (kind == Role::Layer) database.layers.layerAdded(added, name);
    return added;
}

uint64_t TableHandle(OdDbDatabaseImpl& database, Role kind) {
    const TableRow& row = rowOf(kind);
    DrawingStructure::Table& table = database.structure.*row.member;
    database.lastOf(table, row.table);
    return database.handleOf(table.table);
}
