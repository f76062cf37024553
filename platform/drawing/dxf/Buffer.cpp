// The bytes of a file in memory, with readable bytes before and behind them.
#include "platform/drawing/dxf/Buffer.h"

#include <cstring>
#include <new>

#include "platform/drawing/dxf/LargePages.h"

namespace dxf {

Buffer::Buffer(std::string_view bytes) {
    Reserve(bytes.size());
    std::memcpy(Data(), bytes.data(), bytes.size());
    SetSize(bytes.size());
}

void Buffer::Reserve(size_t wanted) {
    if (block && wanted <= capacity) return;
    constexpr size_t kLarge = size_t(8) << 20;
    const size_t whole = wanted + 2 * kMargin;
    char* grown = static_cast<char*>(std::realloc(block.get(), whole));
    if (!grown) throw std::bad_alloc();
    if (!block) std::memset(grown, '\n', kMargin);
    static_cast<void>(block.release());
    block.reset(grown);
    capacity = wanted;
    if (whole >= kLarge) AdviseLargePages(grown, whole);
}

void Buffer::SetSize(size_t newSize) {
    size = newSize;
    std::memset(Data() + size, 0, kMargin);
}

}  // namespace dxf
