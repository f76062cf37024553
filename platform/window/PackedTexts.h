// PackedTexts: the texts of one row in one piece of memory.
#pragma once

#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>

namespace window {

// A sort fetches the memory of every row many times over: a text costs one fetch here, where an
// array of strings costs two, and takes less room. Changing a text moves those behind it.
class PackedTexts {
  public:
    explicit PackedTexts(std::pmr::memory_resource* memory) : block(memory) {}
    size_t Count() const { return count; }
    // Empty for a number out of range; good until the next change.
    std::u16string_view At(size_t number) const {
        if (number >= count) return {};
        const size_t begin = Begin(number);
        return {block.data() + HeadOf(count) + begin, End(number) - begin};
    }
    void Set(size_t number, std::u16string_view text);  // beyond the last: empty ones between
    void Insert(size_t number);                         // an empty one; beyond the last: nothing
    void Erase(size_t number);                          // beyond the last: nothing
    void Truncate(size_t number);                       // only the first ones stay
    void Clear() {                                      // and keeps the memory
        block.clear();
        count = 0;
    }

  private:
    // Two units for each text tell where it ends, counted from the first one's beginning.
    static size_t HeadOf(size_t count) { return 2 * count; }
    size_t End(size_t number) const {
        return size_t{block[2 * number]} | size_t{block[2 * number + 1]} << 16;
    }
    void SetEnd(size_t number, size_t end);
    size_t Begin(size_t number) const { return number == 0 ? 0 : End(number - 1); }
    void Add(size_t number);  // an empty one
    void Reserve(size_t units);

    std::pmr::u16string block;
    uint32_t count = 0;
};

}  // namespace window
