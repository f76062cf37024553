// Reading the entries of a dictionary record, and writing the changed ones into it.
#include "platform/drawing/DictionaryCache.h"

#include <algorithm>

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

DictionaryEntries::DictionaryEntries(dxf::Store& store, dxf::RecordIndex record)
    : store(store), record(record) {
    read();
}

void DictionaryEntries::read() {
    int place = 0;
    const auto onPair = [&](const Group& name, const Group& reference) {
        Entry entry{store.Codec().Decode(name.value), reference.AsHandle(), place++};
        const auto number = static_cast<uint32_t>(entries.size());
        if (!byName.try_emplace(text::FoldCase(entry.name), number).second) duplicates = true;
        entries.push_back(std::move(entry));
    };
    const auto onOther = [&](const Group& group) {
        if (group.code == 280) hard = group.AsInt() == 1;
    };
    walkPairs(store, record, onPair, onOther);
}

const DictionaryEntries::Entry* DictionaryEntries::find(std::u16string_view name) const {
    const auto found = byName.find(text::FoldCase(name));
    return found == byName.end() ? nullptr : &entries[found->second];
}

const DictionaryEntries::Entry* DictionaryEntries::findHandle(uint64_t handle) const {
    for (const Entry& entry : entries) {
        if (!entry.removed && entry.handle == handle) return &entry;
    }
    return nullptr;
}

std::vector<const DictionaryEntries::Entry*> DictionaryEntries::standing(bool sorted) const {
    std::vector<std::pair<std::u16string_view, const Entry*>> found;
    found.reserve(byName.size());
    for (const auto& [folded, number] : byName) found.emplace_back(folded, &entries[number]);
    std::ranges::sort(found, [sorted](const auto& a, const auto& b) {
        return sorted ? a.first < b.first : a.second < b.second;
    });
    std::vector<const Entry*> result;
    result.reserve(found.size());
    for (const auto& [folded, entry] : found) result.push_back(entry);
    return result;
}

void DictionaryEntries::set(std::u16string_view name, uint64_t handle) {
    const auto number = static_cast<uint32_t>(entries.size());
    const auto [found, added] = byName.try_emplace(text::FoldCase(name), number);
    if (added) {
        entries.push_back({std::u16string(name), handle, -1});
    } else {
        entries[found->second].handle = handle;
        entries[found->second].changed = true;
    }
    dirty = true;
}

// A later pair of the same name, which was never found before, goes too.
void DictionaryEntries::remove(std::u16string_view name) {
    const std::u16string folded = text::FoldCase(name);
    const auto found = byName.find(folded);
    if (found == byName.end()) return;
    entries[found->second].removed = true;
    if (duplicates) {
        for (Entry& entry : entries) {
            if (!entry.removed && text::FoldCase(entry.name) == folded) entry.removed = true;
        }
    }
    byName.erase(found);
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
    std::vector<Entry> kept;
    kept.reserve(byName.size());
    int place = 0;
    byName.clear();
    for (Entry& entry : entries) {
        if (entry.removed) continue;
        entry.place = place++;
        entry.changed = false;
        byName.try_emplace(text::FoldCase(entry.name), static_cast<uint32_t>(kept.size()));
        kept.push_back(std::move(entry));
    }
    entries = std::move(kept);
    dirty = false;
}

void WriteNewDictionary(const dxf::Store& store, dxf::GroupWriter& writer) {
    writer.String(100, "AcDbDictionary");
    if (store.FileVersion() >= dxf::Version::R2000) writer.Int(281, 1);
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
    uint64_t found = 0;
    const auto onPair = [&](const Group& key, const Group& reference) {
        if (found != 0) return;
        const std::u16string text = store.Codec().Decode(key.value);
        if (text == name || text::CompareNoCase(text, name) == 0) found = reference.AsHandle();
    };
    walkPairs(store, record, onPair, [](const Group&) {});
    return found;
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
