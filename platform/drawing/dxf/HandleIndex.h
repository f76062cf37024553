// Finds the record that bears a handle.
#pragma once

#include <vector>

#include "platform/drawing/dxf/RecordTable.h"

namespace dxf {

// Open addressing over record numbers; the handles themselves stand in the records. A record whose
// handle changes leaves a slot that no longer matches, which does no harm.
class HandleIndex {
  public:
    explicit HandleIndex(const RecordTable& records) : records(records) {}

    void Reserve(RecordIndex count);
    RecordIndex Find(uint64_t handle) const;  // kNoRecord when there is none
    // Enters a record under its handle. A handle that has a record already keeps it, and that
    // record is returned; else the entered one.
    RecordIndex Insert(RecordIndex index);

  private:
    size_t SlotOf(uint64_t handle) const;
    void Rehash(size_t slotCount);

    const RecordTable& records;
    std::vector<RecordIndex> slots;
    size_t used = 0;
};

}  // namespace dxf
