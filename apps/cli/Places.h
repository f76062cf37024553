// Where the translations of lines are to be written.
#pragma once

#include <atomic>
#include <span>
#include <utility>
#include <vector>

#include "apps/cli/TranslationTable.h"

namespace cli {

using Lines = traducaoTQ::ITabelaExpressoes::ListaExpressoes;

// An object of a line.
struct Place {
    uint64_t handle;
    traducaoTQ::ETraduzivel* object;  // null once it is known that its text cannot be written
    uint32_t line, number;            // which one of the line's objects it is
};

// Sorts places in the order of the lines.
inline std::pair<uint32_t, uint32_t> InLines(const Place& place) {
    return {place.line, place.number};
}

// The places of all lines, in the order of their handles, in which they stand in the file. The
// references of one block show the same text, which is one place. objects: how many the lines have.
std::vector<Place> PlacesOf(const Lines& lines, size_t objects);

// Neighbours in the file stand anywhere in memory: fetches the object of a place ahead.
inline void FetchObjectAhead(std::span<const Place> places, size_t next) {
    constexpr size_t kAhead = 12;
    if (next + kAhead < places.size()) __builtin_prefetch(places[next + kAhead].object);
}

// Hands places that are sorted by handle out part by part, also to several threads. The places of
// one object are in one part.
class Parts {
  public:
    explicit Parts(std::span<Place> places) : places(places) {}

    std::span<Place> Take();  // empty at the end
    double Taken() const;     // how much, from 0 to 1

  private:
    size_t BeginOf(size_t part) const;

    const std::span<Place> places;
    std::atomic<size_t> next = 0;
};

}  // namespace cli
