// The stack of the calling thread.
#pragma once
#include <cstdint>

namespace lisp {

// The address below which an evaluation that starts here must not go: enough is left for what
// a native function of the host needs, and an unlimited stack is not used up.
std::uintptr_t LowestUsableFrame();

}  // namespace lisp
