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
    traducaoTQ::ETraduzivel* object;
    uint32_t line, number;  // which one of the line's objects it is
};

// Sorts places in the order of the lines.
inline std::pair<uint32_t, uint32_t> InLines(const Place& place) {
    return {place.line, place.number};
}

struct Places {
    std::vector<Place> plain;     // in the order of their handles, in which they stand in the file
    std::vector<Place> inBlocks;  // one for all references of a block, which show the same text
};

Places PlacesOf(const Lines& lines, size_t objects);  // objects: how many the lines have

// Hands places that are sorted by handle out part by part, also to several threads. The places of
// one object are in one part.
class Parts {
  public:
    explicit Parts(std::span<const Place> places) : places(places) {}

    std::span<const Place> Take();  // empty at the end
    double Taken() const;           // how much, from 0 to 1

  private:
    size_t BeginOf(size_t part) const;

    const std::span<const Place> places;
    std::atomic<size_t> next = 0;
};

}  // namespace cli
