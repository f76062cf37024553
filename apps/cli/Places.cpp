// Where the translations of lines are to be written.
#include "apps/cli/Places.h"

#include <algorithm>
#include <unordered_set>

#include "apps/cli/PromptHeap.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"

namespace cli {

namespace {

using traducaoTQ::AnteciparMemoria;
using traducaoTQ::AnteciparTraduzivel;

// Lines, their lists and their objects stand anywhere in memory.
void FetchAhead(const Lines& lines, size_t next, size_t last) {
    constexpr size_t kLine = 24, kList = 16, kObject = 8;
    if (next + kLine >= last) return;
    AnteciparMemoria(lines[next + kLine].get());
    AnteciparMemoria(&lines[next + kLine]->objetos);
    AnteciparMemoria(lines[next + kList]->objetos.data());
    AnteciparMemoria(lines[next + kList]->traducao.data());
    for (const auto* object : lines[next + kObject]->objetos) AnteciparTraduzivel(object);
}

// The texts of one object in the order of the lines, however the threads have shared them: of two
// strings with one name the first is found.
bool IsBefore(const Place& a, const Place& b) {
    return a.handle != b.handle ? a.handle < b.handle : InLines(a) < InLines(b);
}

class Taker {
  public:
    Taker(Lines& lines, size_t objects) : lines(lines) { places.reserve(objects); }

    void Take(size_t first, size_t last) {
        for (size_t line = first; line < last; ++line) {
            FetchAhead(lines, line, last);
            const bool wanted = IsTranslated(*lines[line]);
            TakeObjects(static_cast<uint32_t>(line), wanted);
            if (!wanted) lines[line].reset();
        }
    }
    std::span<Place> Places() { return places; }

  private:
    void TakeObjects(uint32_t line, bool wanted) {
        uint32_t number = 0;
        for (auto* owned : std::exchange(lines[line]->objetos, {})) {
            std::unique_ptr<traducaoTQ::ETraduzivel> object(owned);
            const uint64_t handle = wanted ? HandleOf(*object) : 0;
            const uint32_t place = number++;
            if (!wanted || (IsBlockText(*object) && !inBlocks.insert(handle).second)) continue;
            places.push_back({handle, std::move(object), line, place});
        }
    }

    Lines& lines;
    std::vector<Place> places;
    std::unordered_set<uint64_t> inBlocks;
};

// Sorts by buckets of neighbouring handles, of which a drawing leaves few out: each is small enough
// to stay near the processor while it is sorted, and two threads sort different ones.
class Sorting {
  public:
    Sorting(std::span<Place> front, std::span<Place> back)
        : front(front), back(back), sorted(front.size() + back.size()) {
        constexpr size_t kBucket = 32;
        uint64_t highest = 0;
        for (const auto& places : {front, back}) {
            for (const Place& place : places) highest = std::max(highest, place.handle);
        }
        const size_t wanted = sorted.size() / kBucket + 1;
        while (highest >> shift > wanted) ++shift;
        buckets = (highest >> shift) + 1;
    }

    std::vector<Place> Sorted() && {
        // Of each bucket: how many, then where the next one goes, at last where they end.
        std::vector<uint32_t> frontNext, backNext;
        SideBySide([&] { frontNext = Count(front); }, [&] { backNext = Count(back); });
        uint32_t end = 0;
        for (size_t bucket = 0; bucket < buckets; ++bucket) {
            end += std::exchange(frontNext[bucket], end);
            end += std::exchange(backNext[bucket], end);
        }
        const std::vector<uint32_t> begins = frontNext;
        SideBySide([&] { MoveFrom(front, frontNext); }, [&] { MoveFrom(back, backNext); });
        const auto sort = [&](size_t first, size_t last) {
            for (size_t bucket = first; bucket < last; ++bucket) {
                std::sort(sorted.begin() + begins[bucket], sorted.begin() + backNext[bucket],
                          IsBefore);
            }
        };
        const auto half = static_cast<uint32_t>(sorted.size() / 2);
        const auto middle =
            static_cast<size_t>(std::ranges::lower_bound(begins, half) - begins.begin());
        SideBySide([&] { sort(0, middle); }, [&] { sort(middle, buckets); });
        return std::move(sorted);
    }

  private:
    std::vector<uint32_t> Count(std::span<const Place> places) const {
        std::vector<uint32_t> counts(buckets);
        for (const Place& place : places) ++counts[place.handle >> shift];
        return counts;
    }
    void MoveFrom(std::span<Place> places, std::vector<uint32_t>& next) {
        for (Place& place : places) sorted[next[place.handle >> shift]++] = std::move(place);
    }

    const std::span<Place> front, back;
    std::vector<Place> sorted;
    unsigned shift = 0;
    size_t buckets = 1;
};

}  // namespace

// Memory mostly goes back to the thread that took it, which made about the same of the lines.
std::vector<Place> TakePlaces(TranslationTable& table) {
    constexpr size_t kPart = 4096;
    const PromptHeap prompt;
    auto& lines = *table.table.expressoes;
    const size_t objects = table.objects->size();
    std::exchange(*table.objects, {});  // every object is an object of one line
    Taker front(lines, objects), back(lines, objects);
    traducaoTQ::EmPartes(
        lines.size(), kPart, table.table.fazerAmbos,
        [&](size_t first, size_t last) { front.Take(first, last); },
        [&](size_t first, size_t last) { back.Take(first, last); });
    return Sorting(front.Places(), back.Places()).Sorted();
}

size_t BehindObject(std::span<const Place> places, size_t place) {
    while (place > 0 && place < places.size() && places[place].handle == places[place - 1].handle) {
        ++place;
    }
    return place;
}

}  // namespace cli
