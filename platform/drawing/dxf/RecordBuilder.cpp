// Fills the index entry of one record from its groups.
#include "platform/drawing/dxf/RecordBuilder.h"

#include <array>
#include <utility>

namespace dxf {

namespace {

struct TypeName {
    std::string_view name;
    RecordType type;
};

constexpr auto kTypes = std::to_array<TypeName>({
    {"APPID", RecordType::AppId},
    {"ATTDEF", RecordType::Attdef},
    {"ATTRIB", RecordType::Attrib},
    {"BLOCK", RecordType::Block},
    {"BLOCK_RECORD", RecordType::BlockRecord},
    {"CLASS", RecordType::Class},
    {"DICTIONARY", RecordType::Dictionary},
    {"DIMSTYLE", RecordType::DimStyle},
    {"ENDBLK", RecordType::Endblk},
    {"ENDSEC", RecordType::Endsec},
    {"ENDTAB", RecordType::Endtab},
    {"EOF", RecordType::Eof},
    {"INSERT", RecordType::Insert},
    {"LAYER", RecordType::Layer},
    {"LWPOLYLINE", RecordType::LwPolyline},
    {"MTEXT", RecordType::Mtext},
    {"POLYLINE", RecordType::Polyline},
    {"SECTION", RecordType::Section},
    {"SEQEND", RecordType::Seqend},
    {"STYLE", RecordType::Style},
    {"TABLE", RecordType::Table},
    {"TEXT", RecordType::Text},
    {"VERTEX", RecordType::Vertex},
    {"XRECORD", RecordType::Xrecord},
});

constexpr auto kSections = std::to_array<std::pair<std::string_view, Section>>({
    {"ACDSDATA", Section::AcdsData},
    {"BLOCKS", Section::Blocks},
    {"CLASSES", Section::Classes},
    {"ENTITIES", Section::Entities},
    {"HEADER", Section::Header},
    {"OBJECTS", Section::Objects},
    {"TABLES", Section::Tables},
    {"THUMBNAILIMAGE", Section::Thumbnail},
});

// Every record of a file asks for its type, so the table is one look-up: no two names above share a
// slot.
constexpr size_t kSlots = 64;

constexpr size_t SlotOf(std::string_view name) {
    return (uint8_t(name.front()) + size_t(uint8_t(name.back())) * 7 + name.size() * 19) % kSlots;
}

constexpr auto kTypeSlots = [] {
    std::array<TypeName, kSlots> slots{};
    for (const TypeName& row : kTypes) {
        if (!slots[SlotOf(row.name)].name.empty()) throw "two record types share a slot";
        slots[SlotOf(row.name)] = row;
    }
    return slots;
}();

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view WithoutBlanks(std::string_view name) {
    while (!name.empty() && IsBlank(name.back())) name.remove_suffix(1);
    while (!name.empty() && IsBlank(name.front())) name.remove_prefix(1);
    return name;
}

}  // namespace

RecordType TypeOfName(std::string_view name) {
    name = WithoutBlanks(name);
    if (name.empty()) return RecordType::Other;
    const TypeName& row = kTypeSlots[SlotOf(name)];
    return row.name == name ? row.type : RecordType::Other;
}

Section SectionOfName(std::string_view name) {
    name = WithoutBlanks(name);
    for (const auto& [known, section] : kSections)
        if (known == name) return section;
    return Section::Other;
}

void RecordBuilder::Begin(uint64_t offset, std::string_view typeName, Section section) {
    record = Record();
    record.offset = offset;
    record.type = TypeOfName(typeName);
    record.section = section;
    hasLayer = section == Section::Entities || section == Section::Blocks;
    inControl = false;
}

Record RecordBuilder::End(uint64_t offset) {
    const uint64_t length = offset - record.offset;
    if (length > std::numeric_limits<uint32_t>::max())
        throw Error("the record at byte " + std::to_string(record.offset) + " is longer than 4 GB");
    record.length = uint32_t(length);
    if (record.type == RecordType::Section) {
        // Its groups are header variables, whose codes have other meanings.
        record.handle = record.owner = 0;
        record.text = record.xdata = 0;
        record.flags = 0;
    }
    return record;
}

bool RecordBuilder::IsOne(std::string_view value) const {
    return Group{67, format, value}.AsInt() == 1;
}

}  // namespace dxf
