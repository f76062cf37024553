// Packing texts: where each ends, then all of them.
#include "platform/window/PackedTexts.h"

#include <utility>

namespace window {

void PackedTexts::Set(size_t number, std::u16string_view text) {
    if (number < count && At(number) == text) return;
    const size_t added = number < count ? 0 : number + 1 - count;
    Reserve(block.size() + HeadOf(added) + text.size());
    while (count <= number) Add(count);
    const size_t begin = Begin(number), former = End(number) - begin;
    block.replace(HeadOf(count) + begin, former, text);
    for (size_t i = number; i < count; ++i) SetEnd(i, End(i) - former + text.size());
}

void PackedTexts::Insert(size_t number) {
    if (number < count) Add(number);
}

void PackedTexts::Add(size_t number) {
    const size_t end = Begin(number);
    block.insert(HeadOf(number), 2, u'\0');
    ++count;
    SetEnd(number, end);
}

void PackedTexts::Erase(size_t number) {
    if (number >= count) return;
    Set(number, {});
    block.erase(HeadOf(number), 2);
    --count;
}

void PackedTexts::Truncate(size_t number) {
    if (number >= count) return;
    block.resize(HeadOf(count) + Begin(number));
    block.erase(HeadOf(number), HeadOf(count) - HeadOf(number));
    count = static_cast<uint32_t>(number);
}

// No more than that: a string that grows by itself takes twice what it holds.
void PackedTexts::Reserve(size_t units) {
    if (units <= block.capacity()) return;
    std::pmr::u16string roomy(block.get_allocator());
    roomy.reserve(units);
    roomy += block;
    block = std::move(roomy);
}

void PackedTexts::SetEnd(size_t number, size_t end) {
    block[2 * number] = static_cast<char16_t>(end);
    block[2 * number + 1] = static_cast<char16_t>(end >> 16);
}

}  // namespace window
