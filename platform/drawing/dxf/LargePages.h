// Advice to the kernel about large blocks of memory.
#pragma once

#include <cstddef>

namespace dxf {

// Fewer and larger pages: the first touch of a 100 MB buffer costs as much as its scan otherwise.
// Only advice, so a refusal does not matter.
void AdviseLargePages(void* block, size_t size);

}  // namespace dxf
