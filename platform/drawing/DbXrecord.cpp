// Xrecords, and the text object that stands in one.
#include "platform/drawing/DbXrecord.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/EObjString.h"
#include "platform/drawing/ResBufChain.h"
#include "platform/drawing/TextChunks.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbXrecord, OdDbObject)
ODRX_CONS_DEFINE_MEMBERS(EObjString, OdDbObject)

namespace {

constexpr std::string_view kSubclass = "AcDbXrecord";

// The groups of the chain stand behind the mark of the subclass and the 280 that follows it.
uint32_t dataBegin(const dxf::Store& store, dxf::RecordIndex index) {
    auto reader = store.Groups(index);
    dxf::Group group;
    uint32_t begin = 0;
    while (reader.Next(group) && group.code < 1000) {
        if (group.code == 100 && group.value.starts_with(kSubclass)) {
            begin = static_cast<uint32_t>(group.end);
        } else if (begin != 0) {
            return group.code == 280 ? static_cast<uint32_t>(group.end) : begin;
        }
    }
    return begin;
}

std::string encodeChain(const dxf::Store& store, dxf::RecordIndex neighbour, uint64_t handle,
                        const OdResBuf* chain) {
    ResBufWriter writer(store, neighbour, handle, groups::TextLimit(store), u"a string");
    for (; chain; chain = chain->next()) {
        const int type = chain->restype();
        if (type < 1 || type > 369 || type == 5 || type == 105) {
            throw OdError(eInvalidResBuf, u"an xrecord takes the types 1 to 369 but 5 and 105");
        }
        writer.Write(*chain);
    }
    return writer.Take();
}

}  // namespace

OdResBufPtr OdDbXrecord::rbChain() const {
    if (!database()) return pending;
    const dxf::Store& store = core().store;
    const uint32_t end = groups::LayoutOf(store, record()).ownEnd;
    return ResBufReader::Read(store, record(), dataBegin(store, record()), end);
}

void OdDbXrecord::setFromRbChain(const OdResBuf* chain) {
    if (!database()) {
        pending = const_cast<OdResBuf*>(chain);
        return;
    }
    dxf::Store& store = editable().store;
    std::string bytes = encodeChain(store, record(), getDbHandle(), chain);
    const uint32_t begin = dataBegin(store, record());
    const uint32_t end = groups::LayoutOf(store, record()).ownEnd;
    groups::Apply(store, record(), {{begin, end, std::move(bytes)}});
}

void OdDbXrecord::writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const {
    writer.String(100, kSubclass).Int(280, 1);
    writer.Raw(encodeChain(database.store, dxf::kNoRecord, 0, pending));
}

std::string_view OdDbXrecord::newRecordType() const { return "XRECORD"; }

const char16_t* EObjString::getValue() const {
    if (database()) value = ReadStringXrecord(core().store, record()).text;
    return value.c_str();
}

void EObjString::setValue(const OdString& text) {
    if (!database()) {
        value = text;
        return;
    }
    dxf::Store& store = editable().store;
    const ChunkRun present = ReadStringXrecord(store, record());
    if (present.text == text.text()) return;
    std::vector<groups::Edit> edits = ChunkEdits(store, record(), present, text.text());
    if (edits.empty()) {  // nothing stands behind the mark
        dxf::GroupWriter writer = store.NewWriter(record());
        WriteChunks(writer, ChunksOf(store.Codec(), text.text()));
        const uint32_t end = groups::LayoutOf(store, record()).ownEnd;
        edits.push_back({end, end, writer.Take()});
    }
    groups::Apply(store, record(), edits);
}

void EObjString::writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const {
    writer.String(100, kSubclass).Int(280, 1).String(1, kStringMark);
    WriteChunks(writer, ChunksOf(database.store.Codec(), value.text()));
}

std::string_view EObjString::newRecordType() const { return "XRECORD"; }
