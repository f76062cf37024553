// The blocks by name and their entities.
#include "platform/drawing/BlockIndex.h"

#include <algorithm>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/Groups.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;
using dxf::RecordType;

namespace {

// R12 files of later programs name the spaces with a dollar sign.
bool isModelSpaceName(const std::u16string& folded) {
    return folded == u"*model_space" || folded == u"$model_space";
}
bool isPaperSpaceName(const std::u16string& folded) {
    return folded.starts_with(u"*paper_space") || folded.starts_with(u"$paper_space");
}
bool isActivePaperSpaceName(const std::u16string& folded) {
    return folded == u"*paper_space" || folded == u"$paper_space";
}

// Whether the record belongs to the entity ahead of it. An attribute does behind a block reference
// only; a stray one is an entity of its own.
bool isPartOfEntity(RecordType type, RecordType head) {
    switch (type) {
        case RecordType::Vertex:
        case RecordType::Seqend:
        case RecordType::Endblk:
        case RecordType::Block:
        case RecordType::Section:
        case RecordType::Endsec:
            return true;
        case RecordType::Attrib:
            return head == RecordType::Insert;
        default:
            return false;
    }
}

}  // namespace

const std::vector<uint32_t>& BlockIndex::all() {
    build();
    return order;
}

uint32_t BlockIndex::modelSpace() {
    build();
    return model;
}

bool BlockIndex::isBlockRecord(uint32_t index) {
    build();
    return blocks.contains(index);
}

uint32_t BlockIndex::find(std::u16string_view name) {
    build();
    const std::u16string folded = text::FoldCase(name);
    const auto found = byName.find(folded);
    if (found == byName.end()) return kNoRecord;
    return database.isErased(found->second) ? findStanding(folded) : found->second;
}

// Blocks come and go, also through undo: of several of one name the one that stands counts, and
// else the first.
uint32_t BlockIndex::findStanding(const std::u16string& folded) {
    const auto stands = [&](uint32_t index) {
        return !database.isErased(index) && text::FoldCase(blocks[index].name.text()) == folded;
    };
    const auto found = std::find_if(order.begin(), order.end(), stands);
    return found == order.end() ? byName.at(folded) : *found;
}

uint32_t BlockIndex::findRaw(std::string_view rawName) {
    const std::lock_guard lock(making);
    build();
    const auto [place, added] = byRawName.try_emplace(std::string(rawName), kNoRecord);
    if (place->second == kNoRecord || database.isErased(place->second)) {
        place->second = find(database.store.Codec().Decode(rawName));
    }
    return place->second;
}

BlockIndex::Definition BlockIndex::definition(uint32_t index) {
    build();
    const Block& block = blocks.at(index);
    return {block.begin, block.end};
}

void BlockIndex::blockAdded(uint32_t index, OdString name, Definition definition) {
    build();
    addRecord(index, std::move(name));
    blocks[index].begin = definition.begin;
    blocks[index].end = definition.end;
}

const OdString& BlockIndex::nameOf(uint32_t index) {
    build();
    return blocks.at(index).name;
}

void BlockIndex::build() {
    const std::lock_guard lock(making);
    if (built) return;
    built = true;
    for (const RecordIndex record : database.structure.blockRecords.records) {
        addRecord(record, groups::Text(database.store, record, 2));
    }
    for (const auto& [begin, end] : database.structure.blocks) addDefinition(begin, end);
    findSpaces();
}

void BlockIndex::addRecord(uint32_t index, OdString name) {
    order.push_back(index);
    byName.try_emplace(text::FoldCase(name.text()), index);
    blocks[index].name = std::move(name);
}

// A definition belongs to the record that owns it, or else to the record of its name; when there is
// neither, or the record has a definition already, it stands for itself.
void BlockIndex::addDefinition(RecordIndex begin, RecordIndex end) {
    const dxf::Store& store = database.store;
    OdString name = groups::Text(store, begin, 2);
    const uint64_t ownerHandle = store.At(begin).owner;
    uint32_t index = ownerHandle ? store.FindHandle(ownerHandle) : kNoRecord;
    if (!blocks.contains(index)) {
        const auto named = byName.find(text::FoldCase(name.text()));
        index = named == byName.end() ? kNoRecord : named->second;
    }
    const auto found = blocks.find(index);
    if (found == blocks.end() || found->second.begin != kNoRecord) {
        index = begin;
        addRecord(index, std::move(name));
    }
    blocks[index].begin = begin;
    blocks[index].end = end;
}

void BlockIndex::findSpaces() {
    for (const uint32_t index : order) {
        const std::u16string name = text::FoldCase(blocks[index].name.text());
        const uint64_t handle = database.handleOf(index);
        if (isModelSpaceName(name)) {
            if (model == kNoRecord) model = index;
            spaceHandles[handle] = Space::Model;
        } else if (isPaperSpaceName(name)) {
            if (isActivePaperSpaceName(name)) paper = index;
            spaceHandles[handle] = Space::Paper;
        }
    }
    if (model == kNoRecord) {
        model = database.addVirtual(VirtualObject::Kind::ModelSpace);
        addRecord(model, u"*Model_Space");
    }
}

BlockIndex::Space BlockIndex::spaceOf(uint32_t index) const {
    return index == model ? Space::Model : index == paper ? Space::Paper : Space::None;
}

// The flag of paper space, the owner, or else the name of the layout tells.
BlockIndex::Space BlockIndex::spaceOfEntity(RecordIndex index) const {
    const dxf::Record& record = database.store.At(index);
    if (record.flags & dxf::kPaperSpace) return Space::Paper;
    const auto found = record.owner ? spaceHandles.find(record.owner) : spaceHandles.end();
    if (found != spaceHandles.end()) return found->second;
    if (database.store.FileVersion() >= dxf::Version::R2000) {
        const OdString layout = groups::Text(database.store, index, 410);
        if (!layout.isEmpty() && layout.iCompare(u"Model") != 0) return Space::Paper;
    }
    return Space::Model;
}

void BlockIndex::collect(RecordIndex begin, RecordIndex end, Space space,
                         std::vector<RecordIndex>& entities) const {
    const dxf::Store& store = database.store;
    RecordType head = RecordType::Other;
    for (RecordIndex i = begin; i != end && i != kNoRecord; i = store.Next(i)) {
        const RecordType type = store.At(i).type;
        const bool part = isPartOfEntity(type, head);
        if (!part || type == RecordType::Seqend) head = type;
        if (part) continue;
        if (space == Space::None || spaceOfEntity(i) == space) entities.push_back(i);
    }
}

BlockIndex::Contents BlockIndex::contents(uint32_t index) {
    const std::lock_guard lock(making);
    build();
    Block& block = blocks.at(index);
    if (block.contents) return block.contents;
    auto entities = std::make_shared<std::vector<RecordIndex>>();
    if (block.begin != kNoRecord) collect(block.begin, block.end, Space::None, *entities);
    const DrawingStructure& structure = database.structure;
    const Space space = spaceOf(index);
    if (space != Space::None && structure.entitiesBegin != kNoRecord) {
        collect(structure.entitiesBegin, structure.entitiesEnd, space, *entities);
    }
    block.contents = entities;
    return entities;
}
