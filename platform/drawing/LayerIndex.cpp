// The layers and the entities on them.
#include "platform/drawing/LayerIndex.h"

#include <algorithm>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/Groups.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;
using dxf::RecordType;
using dxf::Section;

const std::vector<uint32_t>& LayerIndex::all() {
    build();
    return order;
}

uint32_t LayerIndex::find(const std::u16string& name) {
    build();
    const auto found = byName.find(text::FoldCase(name));
    return found == byName.end() ? kNoRecord : found->second;
}

// It takes the place of one of its name that was taken back by an undo.
void LayerIndex::layerAdded(uint32_t index, const OdString& name) {
    build();
    const auto former = byName.find(text::FoldCase(name.text()));
    if (former != byName.end()) {
        if (!database.isErased(former->second)) return;
        std::ranges::replace(byInterned, former->second, index);
        byName.erase(former);
    }
    add(index, name);
}

const OdString& LayerIndex::nameOf(uint32_t index) {
    build();
    return names.at(index);
}

uint32_t LayerIndex::layerOf(RecordIndex entity) {
    build();
    return resolve(database.store.At(entity).layer);
}

void LayerIndex::build() {
    if (built) return;
    built = true;
    for (const RecordIndex record : database.structure.layers.records) {
        add(record, groups::Text(database.store, record, 2));
    }
    addUsed();
}

void LayerIndex::add(uint32_t index, OdString name) {
    order.push_back(index);
    byName.try_emplace(text::FoldCase(name.text()), index);
    names.emplace(index, std::move(name));
}

// In file order, entities of block definitions included, until every name has been met; "0" is what
// an entity without one is on.
void LayerIndex::addUsed() {
    const dxf::Store& store = database.store;
    byInterned.assign(store.LayerCount(), kNoRecord);
    size_t unmet = byInterned.size();
    for (RecordIndex i = 0; i < store.FileCount(); ++i) {
        if (unmet == 0 && byName.contains(u"0")) return;
        const dxf::Record& record = store.At(i);
        if (record.section != Section::Entities && record.section != Section::Blocks) continue;
        const bool frame = record.type == RecordType::Block || record.type == RecordType::Endblk;
        if (frame || !IsObjectRecord(record)) continue;
        const bool met = record.layer == dxf::kNoLayer || byInterned[record.layer] != kNoRecord;
        if (!met) --unmet;
        resolve(record.layer);
    }
}

uint32_t LayerIndex::resolve(uint32_t interned) {
    if (interned == dxf::kNoLayer) return findOrAdd(u"0");
    if (interned >= byInterned.size()) byInterned.resize(interned + 1, kNoRecord);
    uint32_t& layer = byInterned[interned];
    if (layer == kNoRecord) {
        layer = findOrAdd(database.store.Codec().Decode(database.store.LayerName(interned)));
    }
    return layer;
}

uint32_t LayerIndex::findOrAdd(const std::u16string& name) {
    const auto found = byName.find(text::FoldCase(name));
    if (found != byName.end()) return found->second;
    const uint32_t index = database.addVirtual(VirtualObject::Kind::Layer, name);
    add(index, name);
    return index;
}

const std::vector<RecordIndex>& LayerIndex::entities(uint32_t block, const OdString& layer) {
    build();
    const auto [space, fresh] = spaces.try_emplace(block);
    if (fresh) {
        std::unordered_map<uint32_t, std::vector<RecordIndex>*> lists;
        for (const RecordIndex entity : *database.blocks.contents(block)) {
            auto*& list = lists[layerOf(entity)];
            if (!list) list = &space->second[nameOf(layerOf(entity)).text()];
            list->push_back(entity);
        }
    }
    static const std::vector<RecordIndex> none;
    const auto found = space->second.find(layer.text());
    return found == space->second.end() ? none : found->second;
}
