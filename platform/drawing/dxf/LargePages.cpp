// Advice to the kernel about large blocks of memory.
#include "platform/drawing/dxf/LargePages.h"

#include <sys/mman.h>

#include <cstdint>

namespace dxf {

void AdviseLargePages(void* block, size_t size) {
    constexpr uintptr_t kPage = 4096;
    const uintptr_t begin = reinterpret_cast<uintptr_t>(block);
    const uintptr_t first = (begin + kPage - 1) & ~(kPage - 1);
    const uintptr_t last = (begin + size) & ~(kPage - 1);
    if (last > first) ::madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}

}  // namespace dxf
