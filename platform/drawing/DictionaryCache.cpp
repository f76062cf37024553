// Reading the entries of a dictionary record, and writing the changed ones into it.
#include "platform/drawing/DictionaryCache.h"

#include <algorithm>
#include <bit>

#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"

using dxf::Group;

namespace {

bool isReference(int code) { return code >= 320 && code <= 369; }

// Calls entry(name group, reference group) for each pair of the record, in order.
template <class OnPair, class OnOther>
void walkPairs(const dxf::Store& store, dxf::RecordIndex record, const OnPair& onPair,
               const OnOther& onOther) {
    const uint32_t end = groups::LayoutOf(store, record).ownEnd;
    auto reader = store.Groups(record);
    Group group, name;
    bool named = false;
    while (reader.Next(group) && group.begin < end) {
        if (named && isReference(group.code)) {
            onPair(name, group);
            named = false;
        } else if (group.code == 3) {
            name = group;
            named = true;
        } else {
            onOther(group);
        }
    }
}

}  // namespace

void NameIndex::add(std::u16string_view name, uint32_t place) {
    size_t slot = home(name);
    while (slots[slot] != 0) slot = next(slot);
    slots[slot] = place + 1;
    ++used;
}

void NameIndex::clear(size_t room) {
    slots.assign(std::bit_ceil(2 * room + 16), 0);
    used = 0;
}

size_t NameIndex::home(std::u16string_view name) const {
    std::u16string folded;  // stays empty for ASCII, which is folded on the way
    if (std::any_of(name.begin(), name.end(), [](char16_t unit) { return unit >= 0x80; })) {
        name = folded = text::FoldCase(name);
    }
    uint64_t hash = 0;
    for (const char16_t unit : name) {
        const bool upper = unit >= u'A' && unit <= u'Z';
        hash = (hash ^ (upper ? unit + 32u : unit)) * 0x9E3779B97F4A7C15u;
    }
    return (hash >> 32) & (slots.size() - 1);
}

DictionaryEntries::DictionaryEntries(dxf::Store& store, dxf::RecordIndex record)
    : store(store), record(record) {
    read();
}

void DictionaryEntries::read() {
    int place = 0;
    const auto onPair = [&](const Group& name, const Group& reference) {
        append({store.Codec().Decode(name.value), reference.AsHandle(), place++});
    };
    const auto onOther = [&](const Group& group) {
        if (group.code == 280) hard = group.AsInt() == 1;
    };
    walkPairs(store, record, onPair, onOther);
}

std::optional<uint32_t> DictionaryEntries::placeOf(std::u16string_view name) const {
    return byName.find(name, [&](uint32_t place) {
        const Entry& entry = entries[place];
        return !entry.removed && (entry.name == name || text::CompareNoCase(entry.name, name) == 0);
    });
}

void DictionaryEntries::append(Entry entry) {
    if (byName.full()) {
        byName.clear(2 * entries.size() + 8);
        for (uint32_t place = 0; place < entries.size(); ++place) {
            if (!entries[place].hidden) byName.add(entries[place].name, place);
        }
    }
    entry.hidden = placeOf(entry.name).has_value();
    duplicates = duplicates || entry.hidden;
    live += !entry.hidden;
    if (!entry.hidden) byName.add(entry.name, static_cast<uint32_t>(entries.size()));
    entries.push_back(std::move(entry));
}

const DictionaryEntries::Entry* DictionaryEntries::find(std::u16string_view name) const {
    const auto place = placeOf(name);
    return place ? &entries[*place] : nullptr;
}

const DictionaryEntries::Entry* DictionaryEntries::findHandle(uint64_t handle) const {
    for (const Entry& entry : entries) {
        if (!entry.removed && entry.handle == handle) return &entry;
    }
    return nullptr;
}

std::vector<const DictionaryEntries::Entry*> DictionaryEntries::standing(bool sorted) const {
    std::vector<std::pair<std::u16string, const Entry*>> found;
    found.reserve(live);
    for (const Entry& entry : entries) {
        if (entry.removed || entry.hidden) continue;
        found.emplace_back(sorted ? text::FoldCase(entry.name) : std::u16string(), &entry);
    }
    if (sorted) std::ranges::sort(found, {}, &std::pair<std::u16string, const Entry*>::first);
    std::vector<const Entry*> result;
    result.reserve(found.size());
    for (const auto& [folded, entry] : found) result.push_back(entry);
    return result;
}

void DictionaryEntries::set(std::u16string_view name, uint64_t handle) {
    if (const auto place = placeOf(name)) {
        entries[*place].handle = handle;
        entries[*place].changed = true;
    } else {
        append({std::u16string(name), handle, -1});
    }
    dirty = true;
}

// A later pair of the same name, which was never found before, goes too.
void DictionaryEntries::remove(std::u16string_view name) {
    const auto place = placeOf(name);
    if (!place) return;
    const std::u16string removed = entries[*place].name;
    entries[*place].removed = true;
    --live;
    if (duplicates) {
        for (Entry& entry : entries) {
            if (entry.hidden && text::CompareNoCase(entry.name, removed) == 0) entry.removed = true;
        }
    }
    dirty = true;
}

std::string DictionaryEntries::pair(const Entry& entry) const {
    return store.NewWriter(record)
        .String(3, store.Codec().Encode(entry.name))
        .Handle(hard ? 360 : 350, entry.handle)
        .Take();
}

void DictionaryEntries::flush() {
    if (!dirty) return;
    std::vector<const Entry*> standing;
    for (const Entry& entry : entries) {
        if (entry.place >= 0) standing.push_back(&entry);
    }
    std::vector<groups::Edit> edits;
    uint32_t behind = 0;
    size_t place = 0;
    walkPairs(
        store, record,
        [&](const Group& name, const Group& reference) {
            const Entry& entry = *standing[place++];
            const auto begin = static_cast<uint32_t>(name.begin);
            behind = static_cast<uint32_t>(reference.end);
            if (entry.removed) edits.push_back({begin, behind, {}});
            if (!entry.removed && entry.changed) edits.push_back({begin, behind, pair(entry)});
        },
        [&](const Group& group) {
            if (group.code == 100 && group.value != "AcDbDictionary") return;
            if (place == 0 && group.code != 340) behind = static_cast<uint32_t>(group.end);
        });
    std::string added;
    for (const Entry& entry : entries) {
        if (entry.place < 0 && !entry.removed) added += pair(entry);
    }
    if (!added.empty()) edits.push_back({behind, behind, std::move(added)});
    if (!edits.empty()) groups::Apply(store, record, edits);
    settle();
}

void DictionaryEntries::settle() {
    std::vector<Entry> former = std::move(entries);
    entries.clear();
    entries.reserve(former.size());
    byName.clear(former.size());
    live = 0;
    for (Entry& entry : former) {
        if (entry.removed) continue;
        entry.place = static_cast<int>(entries.size());
        entry.changed = false;
        append(std::move(entry));
    }
    dirty = false;
}

void WriteNewDictionary(const dxf::Store& store, dxf::GroupWriter& writer) {
    writer.String(100, "AcDbDictionary");
    if (store.FileVersion() >= dxf::Version::R2000) writer.Int(281, 1);
}

void ForEachEntry(const dxf::Store& store, dxf::RecordIndex dictionary,
                  const std::function<void(std::u16string name, uint64_t handle)>& visit) {
    const auto onPair = [&](const Group& name, const Group& reference) {
        visit(store.Codec().Decode(name.value), reference.AsHandle());
    };
    walkPairs(store, dictionary, onPair, [](const Group&) {});
}

uint64_t FindEntry(const dxf::Store& store, dxf::RecordIndex dictionary, std::u16string_view name) {
    uint64_t found = 0;
    const auto onPair = [&](const Group& key, const Group& reference) {
        if (found != 0) return;
        const bool bears = store.Codec().Reads(key.value, name) ||
                           text::CompareNoCase(store.Codec().Decode(key.value), name) == 0;
        if (bears) found = reference.AsHandle();
    };
    walkPairs(store, dictionary, onPair, [](const Group&) {});
    return found;
}

DictionaryEntries& DictionaryCache::entries(dxf::RecordIndex record) {
    auto& place = cache[record];
    if (!place) place = std::make_unique<DictionaryEntries>(store, record);
    return *place;
}

uint64_t DictionaryCache::find(dxf::RecordIndex record, std::u16string_view name) {
    const bool small = store.At(record).length <= kSmallRecord && !cache.contains(record);
    if (!small) {
        const auto* entry = entries(record).find(name);
        return entry ? entry->handle : 0;
    }
    return FindEntry(store, record, name);
}

void DictionaryCache::flush(dxf::RecordIndex record) {
    const auto found = cache.find(record);
    if (found != cache.end()) found->second->flush();
}

void DictionaryCache::flushAll() {
    for (auto& [record, entries] : cache) entries->flush();
}

void DictionaryCache::forget(dxf::RecordIndex record) { cache.erase(record); }

void DictionaryCache::leave(dxf::RecordIndex record) {
    const auto found = cache.find(record);
    if (found == cache.end() || found->second->pairs() > kSmall) return;
    found->second->flush();
    cache.erase(found);
}
