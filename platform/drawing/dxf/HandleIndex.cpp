// Finds the record that bears a handle.
#include "platform/drawing/dxf/HandleIndex.h"

#include <bit>
#include <utility>

namespace dxf {

void HandleIndex::Reserve(RecordIndex count) {
    const size_t wanted = std::bit_ceil(size_t(count) + size_t(count) / 2 + 16);
    if (wanted > slots.size()) Rehash(wanted);
}

// Handles mostly follow each other: groups of eight stay together, for the memory's sake, and the
// groups are scattered. Whole runs side by side would have a new run probe to the end of an old
// one.
size_t HandleIndex::SlotOf(uint64_t handle) const {
    const uint64_t scattered = (handle >> 3) * 0x9E3779B97F4A7C15u >> 24;
    return size_t(scattered << 3 | (handle & 7)) & (slots.size() - 1);
}

RecordIndex HandleIndex::Find(uint64_t handle) const {
    if (slots.empty() || handle == 0) return kNoRecord;
    for (size_t slot = SlotOf(handle);; slot = (slot + 1) & (slots.size() - 1)) {
        const RecordIndex index = slots[slot];
        if (index == kNoRecord || records[index].handle == handle) return index;
    }
}

RecordIndex HandleIndex::Insert(RecordIndex index) {
    if ((used + 1) * 4 > slots.size() * 3) Rehash(std::bit_ceil(used * 2 + 16));
    const uint64_t handle = records[index].handle;
    size_t slot = SlotOf(handle);
    for (; slots[slot] != kNoRecord; slot = (slot + 1) & (slots.size() - 1))
        if (records[slots[slot]].handle == handle) return slots[slot];
    slots[slot] = index;
    ++used;
    return index;
}

void HandleIndex::Rehash(size_t slotCount) {
    const std::vector<RecordIndex> old =
        std::exchange(slots, std::vector<RecordIndex>(slotCount, kNoRecord));
    used = 0;
    for (const RecordIndex index : old)
        if (index != kNoRecord && records[index].handle != 0) Insert(index);
}

}  // namespace dxf
