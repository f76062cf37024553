// Where the translations of lines are to be written.
#include "apps/cli/Places.h"

#include <algorithm>
#include <unordered_set>

#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"

namespace cli {

namespace {

constexpr size_t kPart = 1024;

// Lines, their lists and their objects stand anywhere in memory.
void FetchAhead(const Lines& lines, uint32_t next, uint32_t last) {
    constexpr uint32_t kLine = 24, kList = 16, kObject = 8;
    if (next + kLine >= last) return;
    __builtin_prefetch(&lines[next + kLine]->objetos);
    __builtin_prefetch(lines[next + kList]->objetos.data());
    __builtin_prefetch(lines[next + kObject]->objetos.front());
}

void AddPlaces(const Lines& lines, uint32_t first, uint32_t last, std::vector<Place>& places) {
    std::unordered_set<uint64_t> inBlocks;
    for (uint32_t line = first; line < last; ++line) {
        FetchAhead(lines, line, last);
        const auto& objects = lines[line]->objetos;
        for (uint32_t number = 0; number < objects.size(); ++number) {
            const traducaoTQ::ETraduzivel& object = *objects[number];
            const uint64_t handle = HandleOf(object);
            if (IsBlockText(object) && !inBlocks.insert(handle).second) continue;
            places.push_back({handle, objects[number], line, number});
        }
    }
    std::ranges::sort(places, {}, &Place::handle);
}

}  // namespace

std::vector<Place> PlacesOf(const Lines& lines, size_t objects) {
    const auto count = static_cast<uint32_t>(lines.size()), half = count / 2;
    std::vector<Place> front, back;
    front.reserve(objects);
    back.reserve(objects);
    SideBySide([&] { AddPlaces(lines, 0, half, front); },
               [&] { AddPlaces(lines, half, count, back); });
    const auto middle = static_cast<ptrdiff_t>(front.size());
    std::ranges::copy(back, std::back_inserter(front));
    std::ranges::inplace_merge(front, front.begin() + middle, {}, &Place::handle);
    return front;
}

// Where a part of equal size would begin, or behind the object that stands across its begin.
size_t Parts::BeginOf(size_t part) const {
    size_t begin = std::min(part * kPart, places.size());
    while (begin > 0 && begin < places.size() && places[begin].handle == places[begin - 1].handle) {
        ++begin;
    }
    return begin;
}

std::span<Place> Parts::Take() {
    for (;;) {
        const size_t part = next++;
        const size_t begin = BeginOf(part), end = BeginOf(part + 1);
        if (begin < end || begin == places.size()) return places.subspan(begin, end - begin);
    }
}

double Parts::Taken() const {
    const auto taken = static_cast<double>(next * kPart);
    return std::min(taken / static_cast<double>(std::max<size_t>(places.size(), 1)), 1.0);
}

}  // namespace cli
