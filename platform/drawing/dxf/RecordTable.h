// The index entries of a file, in pieces.
#pragma once

#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "platform/drawing/dxf/LargePages.h"
#include "platform/drawing/dxf/Record.h"

namespace dxf {

// A growing array whose elements never move: a vector that doubles would need three times the
// memory of the index for a moment. Memory is touched only where records are.
class RecordTable {
  public:
    Record& Append(const Record& record = {}) {
        if ((count & kMask) == 0) AddChunk();
        return *new (&(*this)[count++]) Record(record);
    }
    Record& operator[](RecordIndex index) { return chunks[index >> kShift].get()[index & kMask]; }
    const Record& operator[](RecordIndex index) const {
        return chunks[index >> kShift].get()[index & kMask];
    }
    RecordIndex Count() const { return count; }

  private:
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) == 48);
    static constexpr RecordIndex kShift = 17, kChunk = RecordIndex(1) << kShift, kMask = kChunk - 1;

    struct Release {
        void operator()(Record* chunk) const { std::free(chunk); }
    };

    void AddChunk() {
        constexpr size_t kLargePage = size_t(2) << 20, kSize = kChunk * sizeof(Record);
        static_assert(kSize % kLargePage == 0);
        auto* chunk = static_cast<Record*>(std::aligned_alloc(kLargePage, kSize));
        if (!chunk) throw std::bad_alloc();
        // Not for the first, so that a small drawing stays small.
        if (!chunks.empty()) AdviseLargePages(chunk, kSize);
        chunks.emplace_back(chunk);
    }

    std::vector<std::unique_ptr<Record, Release>> chunks;
    RecordIndex count = 0;
};

}  // namespace dxf
