// The allocator that the drawing database and everything on it share.
#pragma once

#include <cstddef>

// Memory of the process's heap, from which operator new and so strings and lists take theirs too;
// std::bad_alloc when there is none. Given back with odrxFree.
void* odrxAlloc(size_t bytes);
void odrxFree(void* memory);
