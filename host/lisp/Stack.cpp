// The stack of the calling thread.
#include "host/lisp/Stack.h"

#include <pthread.h>

#include <algorithm>

namespace lisp {

std::uintptr_t LowestUsableFrame() {
    constexpr std::uintptr_t reserve = 1 << 20, most = 64 << 20;
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    std::uintptr_t lowest = here - most;
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        void* start = nullptr;
        std::size_t size = 0;
        if (pthread_attr_getstack(&attributes, &start, &size) == 0) {
            const auto end = reinterpret_cast<std::uintptr_t>(start);
            lowest = std::max(lowest, end + std::min<std::uintptr_t>(reserve, size / 4));
        }
        pthread_attr_destroy(&attributes);
    }
    return lowest;
}

}  // namespace lisp
