// Finds the record that bears a handle.
#include "platform/drawing/dxf/HandleIndex.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace dxf {

namespace {

// Whether the handle finds the record. One that has taken over another's may still have a slot.
bool Bears(const Record& record) {
    const bool duplicate = (record.flags & (kDuplicateHandle | kMemoryHandle)) == kDuplicateHandle;
    return record.handle != 0 && !duplicate;
}

}  // namespace

void HandleIndex::Reserve(RecordIndex count, uint64_t seed) {
    const size_t wanted = std::bit_ceil(size_t(count) + size_t(count) / 2 + 16);
    dense = seed <= wanted;
    Rehash(wanted);
}

// Where they are not dense, groups of eight stay together, for the memory's sake, and the groups
// are scattered: with whole runs side by side a new run would probe to the end of an old one.
size_t HandleIndex::SlotOf(uint64_t handle) const {
    if (dense) return size_t(handle);
    const uint64_t scattered = (handle >> 3) * 0x9E3779B97F4A7C15u >> 24;
    return size_t(scattered << 3 | (handle & 7)) & (slots.size() - 1);
}

RecordIndex HandleIndex::Find(uint64_t handle) const {
    if (slots.empty() || handle == 0 || (dense && handle >= slots.size())) return kNoRecord;
    for (size_t slot = SlotOf(handle);; slot = (slot + 1) & (slots.size() - 1)) {
        const RecordIndex index = slots[slot];
        if (index == kNoRecord || records[index].handle == handle) return index;
    }
}

RecordIndex HandleIndex::Insert(RecordIndex index) {
    const uint64_t handle = records[index].handle;
    if (IsFullFor(handle)) Grow(handle);
    size_t slot = SlotOf(handle);
    for (; slots[slot] != kNoRecord; slot = (slot + 1) & (slots.size() - 1))
        if (records[slots[slot]].handle == handle) return slots[slot];
    slots[slot] = index;
    ++used;
    return index;
}

// Dense ones seldom probe, and only need a free slot for it to end at.
bool HandleIndex::IsFullFor(uint64_t handle) const {
    if (dense) return handle >= slots.size() || used + 1 >= slots.size();
    return (used + 1) * 4 > slots.size() * 3;
}

void HandleIndex::Grow(uint64_t handle) {
    const size_t twice = slots.size() * 2;
    dense = dense && handle < twice && twice <= size_t(records.Count()) * 4;
    Rehash(dense ? twice : std::max(slots.size(), std::bit_ceil(used * 2 + 16)));
}

void HandleIndex::Rehash(size_t slotCount) {
    const std::vector<RecordIndex> old =
        std::exchange(slots, std::vector<RecordIndex>(slotCount, kNoRecord));
    used = 0;
    for (const RecordIndex index : old)
        if (index != kNoRecord && Bears(records[index])) Insert(index);
}

}  // namespace dxf
