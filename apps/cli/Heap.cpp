// What the heap does beyond the standard library's.
#include "apps/cli/Heap.h"

#ifdef KELVARA_MIMALLOC
#include <mimalloc.h>
#endif

namespace cli {

void TakeOverHeaps() {
#ifdef KELVARA_MIMALLOC
    mi_collect(true);
#endif
}

}  // namespace cli
