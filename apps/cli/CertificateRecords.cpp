// The judgement of records that were written beside the texts.
#include "apps/cli/CertificateRecords.h"

#include <algorithm>

namespace cli {

namespace {

bool IsEntryName(const Item& item) { return item.code == 3 && item.part == Item::Part::Own; }
bool IsEntryHandle(const Item& item) { return item.code == 350 || item.code == 360; }

uint64_t HandleValue(const Item& item) {
    dxf::Group group;
    group.code = item.code;
    group.value = item.value;
    return group.AsHandle();
}

// Without the pair 9 $HANDSEED, 5 handle.
std::vector<Item> WithoutSeed(const std::vector<Item>& items) {
    std::vector<Item> rest;
    for (size_t i = 0; i < items.size(); ++i) {
        if (items[i].code == 9 && items[i].value == "$HANDSEED") {
            ++i;
        } else {
            rest.push_back(items[i]);
        }
    }
    return rest;
}

// A table counts its records in group 70.
std::vector<Item> WithoutCount(std::vector<Item> items) {
    std::erase_if(items, [](const Item& item) { return item.code == 70; });
    return items;
}

}  // namespace

WrittenRecords::WrittenRecords(const dxf::Store& before, const Expectation& expected)
    : store(before), keys(expected.recordKeys), wires(expected.wires) {
    if (expected.root == dxf::kNoRecord) return;
    const dxf::Record& dictionary = store.At(expected.root);
    root = dictionary.handle;
    RawRecord record;
    if (ReadRecord(store, store.Original(), dictionary.offset, record)) ReadEntries(record);
}

bool WrittenRecords::IsKey(std::string_view rawName) const {
    const std::u16string name = store.Codec().Decode(rawName);
    return std::find(keys.begin(), keys.end(), name) != keys.end();
}

void WrittenRecords::ReadEntries(const RawRecord& record) {
    for (size_t i = 0; i + 1 < record.items.size(); ++i) {
        if (IsEntryName(record.items[i]) && IsEntryHandle(record.items[i + 1]) &&
            IsKey(record.items[i].value)) {
            entryPoints.insert(HandleValue(record.items[i + 1]));
        }
    }
}

bool WrittenRecords::IsRegistration(const RawRecord& record) const {
    if (!wires || record.type != "APPID") return false;
    return std::any_of(record.items.begin(), record.items.end(), [](const Item& item) {
        return item.code == 2 && item.value.starts_with("VRN_TQ_");
    });
}

bool WrittenRecords::Note(const RawRecord& record) {
    if (keys.empty() || record.handle == 0) return false;
    if (record.type != "DICTIONARY" && record.type != "XRECORD") return false;
    ownerOfNew[record.handle] = record.owner;
    ++count;
    return true;
}

bool WrittenRecords::Added(const RawRecord& record) {
    if (IsRegistration(record)) return ++count, true;
    // A drawing without objects gets a section for them, with a root dictionary of owner 0.
    if (!keys.empty() && root == 0) {
        if (record.type == "SECTION" || record.type == "ENDSEC") return true;
        if (record.type == "DICTIONARY" && record.owner == 0) {
            ReadEntries(record);
            return ++count, true;
        }
    }
    return Note(record);
}

bool WrittenRecords::Removed(const RawRecord& record) { return Note(record); }

bool WrittenRecords::Changed(const RawRecord& before, const RawRecord& after) {
    if (before.type != after.type) return false;
    if ((!keys.empty() || wires) && before.type == "SECTION") {
        counters = true;
        return WithoutSeed(before.items) == WithoutSeed(after.items);
    }
    if (wires && before.type == "TABLE") {
        counters = true;
        return WithoutCount(before.items) == WithoutCount(after.items);
    }
    if (!keys.empty() && root != 0 && before.handle == root) return RootChanged(before, after);
    return Note(after);
}

// The root dictionary may only gain entries of the keys.
bool WrittenRecords::RootChanged(const RawRecord& before, const RawRecord& after) {
    size_t b = 0, a = 0;
    while (a < after.items.size()) {
        if (b < before.items.size() && before.items[b] == after.items[a]) {
            ++a, ++b;
        } else if (a + 1 < after.items.size() && IsEntryName(after.items[a]) &&
                   IsEntryHandle(after.items[a + 1]) && IsKey(after.items[a].value)) {
            a += 2;
        } else {
            return false;
        }
    }
    if (b != before.items.size()) return false;
    ReadEntries(after);
    ++count;
    return true;
}

void WrittenRecords::Add(const WrittenRecords& behind) {
    count += behind.count;
    counters = counters || behind.counters;
    entryPoints.insert(behind.entryPoints.begin(), behind.entryPoints.end());
    for (const auto& [handle, owner] : behind.ownerOfNew) ownerOfNew[handle] = owner;
}

uint64_t WrittenRecords::OwnerOf(uint64_t handle) const {
    const auto noted = ownerOfNew.find(handle);
    if (noted != ownerOfNew.end()) return noted->second;
    const dxf::RecordIndex index = store.FindHandle(handle);
    return index == dxf::kNoRecord ? 0 : store.At(index).owner;
}

bool WrittenRecords::StandsBelowKey(uint64_t handle) const {
    constexpr int kDeepest = 8;  // also ends a circle of owners
    for (int level = 0; level < kDeepest && handle != 0; ++level) {
        if (entryPoints.contains(handle)) return true;
        handle = OwnerOf(handle);
    }
    return false;
}

std::vector<uint64_t> WrittenRecords::Misplaced() const {
    std::vector<uint64_t> handles;
    for (const auto& [handle, owner] : ownerOfNew) {
        if (!StandsBelowKey(handle)) handles.push_back(handle);
    }
    return handles;
}

}  // namespace cli
