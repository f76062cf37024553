// Where the translations of lines are to be written.
#include "apps/cli/Places.h"

#include <algorithm>
#include <unordered_set>

#include "apps/cli/PromptHeap.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"

namespace cli {

namespace {

// Lines, their lists and their objects stand anywhere in memory.
void FetchAhead(const Lines& lines, size_t next, size_t last) {
    constexpr size_t kLine = 24, kList = 16, kObject = 8;
    if (next + kLine >= last) return;
    traducaoTQ::AnteciparMemoria(lines[next + kLine].get());
    traducaoTQ::AnteciparMemoria(&lines[next + kLine]->objetos);
    traducaoTQ::AnteciparMemoria(lines[next + kList]->objetos.data());
    traducaoTQ::AnteciparMemoria(lines[next + kObject]->objetos.front());
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
    std::vector<Place> TakeSorted() {
        std::ranges::sort(places, IsBefore);
        return std::move(places);
    }

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

// Both are sorted. From behind, so that no more memory is needed than the first has kept in store.
void MergeInto(std::vector<Place>& places, std::vector<Place> others) {
    size_t first = places.size(), second = others.size(), behind = first + second;
    places.resize(behind);
    while (second > 0) {
        const bool later = first > 0 && IsBefore(others[second - 1], places[first - 1]);
        places[--behind] = std::move(later ? places[--first] : others[--second]);
    }
}

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
    std::vector<Place> places, others;
    SideBySide([&] { places = front.TakeSorted(); }, [&] { others = back.TakeSorted(); });
    MergeInto(places, std::move(others));
    return places;
}

size_t BehindObject(std::span<const Place> places, size_t place) {
    while (place > 0 && place < places.size() && places[place].handle == places[place - 1].handle) {
        ++place;
    }
    return place;
}

}  // namespace cli
