// One pass over the records for what stands where.
#include "platform/drawing/DrawingStructure.h"

#include "platform/drawing/Groups.h"

using dxf::RecordIndex;
using dxf::RecordType;
using dxf::Section;

namespace {

struct SectionName {
    std::string_view name;
    Section section;
};
const SectionName kSections[] = {{"HEADER", Section::Header},     {"CLASSES", Section::Classes},
                                 {"TABLES", Section::Tables},     {"BLOCKS", Section::Blocks},
                                 {"ENTITIES", Section::Entities}, {"OBJECTS", Section::Objects}};

Section sectionOf(std::string_view name) {
    for (const SectionName& row : kSections) {
        if (row.name == name) return row.section;
    }
    return Section::Other;
}

std::string_view nameOf(const dxf::Store& store, RecordIndex index) {
    const auto name = groups::Find(store, index, 2);
    return name ? name->value : std::string_view();
}

}  // namespace

bool IsObjectRecord(const dxf::Record& record) {
    switch (record.section) {
        case Section::Tables:
        case Section::Blocks:
        case Section::Entities:
        case Section::Objects:
            break;
        default:
            return false;
    }
    switch (record.type) {
        case RecordType::Section:
        case RecordType::Endsec:
        case RecordType::Endtab:
        case RecordType::Eof:
            return false;
        default:
            return true;
    }
}

DrawingStructure::DrawingStructure(const dxf::Store& store) {
    for (RecordIndex i = 0; i < store.FileCount(); ++i) {
        const dxf::Record& record = store.At(i);
        highestHandle = std::max(highestHandle, record.handle);
        const bool lacks = record.handle == 0 || (record.flags & dxf::kDuplicateHandle);
        if (lacks && IsObjectRecord(record)) withoutHandle.push_back(i);
        const bool begins = record.type == RecordType::Section;
        // In a damaged file a section may lack its ENDSEC.
        const bool cut = begins || record.type == RecordType::Eof;
        if (cut && section != Section::None) sectionEnds(i);
        if (begins) {
            sectionBegins(store, i);
        } else if (record.type == RecordType::Endsec) {
            sectionEnds(i);
        } else if (section == Section::Tables) {
            tableRecord(store, i);
        } else if (section == Section::Blocks) {
            blockRecord(store, i);
        } else if (section == Section::Objects && record.type == RecordType::Dictionary) {
            const bool first = rootDictionary == dxf::kNoRecord;
            if (first || (record.owner == 0 && store.At(rootDictionary).owner != 0)) {
                rootDictionary = i;
            }
        }
    }
}

void DrawingStructure::sectionBegins(const dxf::Store& store, RecordIndex index) {
    section = sectionOf(nameOf(store, index));
    if (section == Section::Entities) entitiesBegin = index;
    if (section == Section::Objects) objectsBegin = index;
}

void DrawingStructure::sectionEnds(RecordIndex index) {
    if (section == Section::Header) headerEnd = index;
    if (section == Section::Classes) classesEnd = index;
    if (section == Section::Tables) tablesEnd = index;
    if (section == Section::Blocks) blocksEnd = index;
    if (section == Section::Entities) entitiesEnd = index;
    if (section == Section::Objects) objectsEnd = index;
    if (blockOpen) blocks.back().end = index;
    blockOpen = false;
    table = nullptr;
    lastSectionEnd = index;
    section = Section::None;
}

RecordType DrawingStructure::recordTypeOf(const Table& of) const {
    return &of == &layers         ? RecordType::Layer
           : &of == &blockRecords ? RecordType::BlockRecord
           : &of == &applications ? RecordType::AppId
                                  : RecordType::Eof;  // none of the table's own
}

void DrawingStructure::tableRecord(const dxf::Store& store, RecordIndex index) {
    const RecordType type = store.At(index).type;
    if (type == RecordType::Table) {
        const std::string_view name = nameOf(store, index);
        table = name == "LAYER"          ? &layers
                : name == "BLOCK_RECORD" ? &blockRecords
                : name == "APPID"        ? &applications
                : name == "LTYPE"        ? &linetypes
                : name == "STYLE"        ? &textStyles
                : name == "DIMSTYLE"     ? &dimStyles
                                         : nullptr;
        if (table && table->table == dxf::kNoRecord) table->table = index;
    } else if (type == RecordType::Endtab) {
        if (table && table->end == dxf::kNoRecord) table->end = index;
        table = nullptr;
    } else if (table && type == recordTypeOf(*table)) {
        table->records.push_back(index);
    }
}

void DrawingStructure::blockRecord(const dxf::Store& store, RecordIndex index) {
    const RecordType type = store.At(index).type;
    if (type == RecordType::Block) {
        if (blockOpen) blocks.back().end = index;
        blocks.push_back({index, index});
        blockOpen = true;
    } else if (type == RecordType::Endblk && blockOpen) {
        blocks.back().end = index;
        blockOpen = false;
    }
}
