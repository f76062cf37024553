// The bytes of a file in memory, with readable bytes before and behind them.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace dxf {

// Scanning loops may read whole vectors beyond either end. The bytes before the first are line
// feeds, those behind the last are zero.
class Buffer {
  public:
    static constexpr size_t kMargin = 64;

    Buffer() = default;
    explicit Buffer(std::string_view bytes);

    // Grows without a copy of large blocks and without touching memory that is not filled.
    void Reserve(size_t wanted);
    void SetSize(size_t newSize);  // at most what is reserved

    char* Data() { return block.get() + kMargin; }
    const char* Data() const { return block.get() + kMargin; }
    size_t Size() const { return size; }
    size_t Capacity() const { return capacity; }
    std::string_view View() const { return {Data(), size}; }

  private:
    struct Release {
        void operator()(char* p) const { std::free(p); }
    };
    std::unique_ptr<char, Release> block;
    size_t size = 0;
    size_t capacity = 0;
};

}  // namespace dxf
