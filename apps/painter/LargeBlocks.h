// Memory for arrays of many megabytes.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

#include "platform/drawing/dxf/LargePages.h"

namespace painter {

// Allocates as std::allocator does, large blocks in large pages: the first touch of an array would
// cost as much as filling it otherwise.
template <class Value>
struct LargeBlocks {
    using value_type = Value;

    LargeBlocks() = default;
    template <class Other>
    LargeBlocks(const LargeBlocks<Other>&) {}

    Value* allocate(size_t count) {
        const size_t size = count * sizeof(Value);
        if (size < kPage) return static_cast<Value*>(::operator new(size));
        const size_t whole = (size + kPage - 1) / kPage * kPage;
        void* const block = std::aligned_alloc(kPage, whole);
        if (!block) throw std::bad_alloc();
        dxf::AdviseLargePages(block, whole);
        return static_cast<Value*>(block);
    }
    void deallocate(Value* block, size_t count) {
        if (count * sizeof(Value) < kPage) {
            ::operator delete(block);
        } else {
            std::free(block);
        }
    }
    template <class Other>
    friend bool operator==(const LargeBlocks&, const LargeBlocks<Other>&) {
        return true;
    }

  private:
    static constexpr size_t kPage = 2 << 20;
};

}  // namespace painter
