// Freed memory that goes back to the system at once.
#include "apps/cli/PromptHeap.h"

#ifdef KV_MIMALLOC
#include <mimalloc.h>
#endif

namespace cli {

#ifdef KV_MIMALLOC

PromptHeap::PromptHeap() : delay(mi_option_get(mi_option_decommit_delay)) {
    mi_option_set(mi_option_decommit_delay, 0);
}

PromptHeap::~PromptHeap() { mi_option_set(mi_option_decommit_delay, delay); }

#else

PromptHeap::PromptHeap() : delay(0) {}
PromptHeap::~PromptHeap() = default;

#endif

}  // namespace cli
