// Where the translations of lines are to be written.
#include "apps/cli/Places.h"

#include <algorithm>
#include <unordered_set>

#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"

namespace cli {

namespace {

constexpr size_t kPart = 1024;

Places PlacesOf(const Lines& lines, uint32_t first, uint32_t last, size_t most) {
    Places places;
    places.plain.reserve(most);
    std::unordered_set<uint64_t> met;
    for (uint32_t line = first; line < last; ++line) {
        const auto& objects = lines[line]->objetos;
        for (uint32_t number = 0; number < objects.size(); ++number) {
            const Place place{HandleOf(*objects[number]), objects[number], line, number};
            if (!IsBlockText(*place.object)) {
                places.plain.push_back(place);
            } else if (met.insert(place.handle).second) {
                places.inBlocks.push_back(place);
            }
        }
    }
    std::ranges::sort(places.plain, {}, &Place::handle);
    return places;
}

}  // namespace

Places PlacesOf(const Lines& lines, size_t objects) {
    const auto count = static_cast<uint32_t>(lines.size()), half = count / 2;
    Places front, back, all;
    SideBySide([&] { front = PlacesOf(lines, 0, half, objects); },
               [&] { back = PlacesOf(lines, half, count, objects); });
    all.plain.reserve(front.plain.size() + back.plain.size());
    std::ranges::merge(front.plain, back.plain, std::back_inserter(all.plain), {}, &Place::handle,
                       &Place::handle);
    all.inBlocks = std::move(front.inBlocks);
    std::ranges::move(back.inBlocks, std::back_inserter(all.inBlocks));
    return all;
}

// Where a part of equal size would begin, or behind the object that stands across its begin.
size_t Parts::BeginOf(size_t part) const {
    size_t begin = std::min(part * kPart, places.size());
    while (begin > 0 && begin < places.size() && places[begin].handle == places[begin - 1].handle) {
        ++begin;
    }
    return begin;
}

std::span<const Place> Parts::Take() {
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
