// Freed memory that goes back to the system at once.
#include "apps/cli/PromptHeap.h"

#ifdef KV_MIMALLOC
#include <mimalloc.h>
#endif

namespace cli {

#ifdef KV_MIMALLOC

#if MI_MALLOC_VERSION < 210
constexpr auto kDelay = mi_option_decommit_delay;
#else
constexpr auto kDelay = mi_option_purge_delay;
#endif

PromptHeap::PromptHeap() : delay(mi_option_get(kDelay)) { mi_option_set(kDelay, 0); }
PromptHeap::~PromptHeap() { mi_option_set(kDelay, delay); }

#else

PromptHeap::PromptHeap() : delay(0) {}
PromptHeap::~PromptHeap() = default;

#endif

}  // namespace cli
