// Finds the record that bears a handle.
#pragma once

#include <vector>

#include "platform/drawing/dxf/RecordTable.h"

namespace dxf {

// Open addressing over record numbers; the handles themselves stand in the records. A record whose
// handle changes leaves a slot that no longer matches, which does no harm. Most drawings leave few
// handles out: then each has the slot of its own number, and neighbours stand side by side.
class HandleIndex {
  public:
    explicit HandleIndex(const RecordTable& records) : records(records) {}

    // Makes room for so many handles, mostly below `seed`.
    void Reserve(RecordIndex count, uint64_t seed);
    RecordIndex Find(uint64_t handle) const;  // kNoRecord when there is none
    // Enters a record under its handle. A handle that has a record already keeps it, and that
    // record is returned; else the entered one.
    RecordIndex Insert(RecordIndex index);

  private:
    size_t SlotOf(uint64_t handle) const;
    bool IsFullFor(uint64_t handle) const;
    void Grow(uint64_t handle);
    void Rehash(size_t slotCount);

    const RecordTable& records;
    std::vector<RecordIndex> slots;
    size_t used = 0;
    bool dense = false;  // all handles are below the number of slots
};

}  // namespace dxf
