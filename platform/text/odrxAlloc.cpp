// The process's heap under the name that code of the drawing database knows.
#include "platform/text/odrxAlloc.h"

#include <new>

void* odrxAlloc(size_t bytes) { return ::operator new(bytes); }

void odrxFree(void* memory) { ::operator delete(memory); }
