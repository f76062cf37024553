// Where the translations of lines are to be written.
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "apps/cli/TranslationTable.h"
#include "translator/dialogs/AnteciparMemoria.h"

namespace cli {

using Lines = traducaoTQ::ITabelaExpressoes::ListaExpressoes;

// An object of a line.
struct Place {
    uint64_t handle;
    std::unique_ptr<traducaoTQ::ETraduzivel> object;
    uint32_t line, number;  // which one of the line's objects it was
};

// Sorts places in the order of the lines.
inline std::pair<uint32_t, uint32_t> InLines(const Place& place) {
    return {place.line, place.number};
}

// Takes the objects out of the table. The places of all translated lines, in the order of their
// handles, in which they stand in the file; the references of one block show the same text, which
// is one place. Of the table the lines remain: without objects, and null where they have no
// translation. The edits of a large drawing need the memory of the others.
std::vector<Place> TakePlaces(TranslationTable& table);

// Neighbours in the file stand anywhere in memory: fetches the object of a place ahead.
inline void FetchObjectAhead(std::span<const Place> places, size_t next) {
    constexpr size_t kAhead = 12;
    if (next + kAhead >= places.size()) return;
    traducaoTQ::AnteciparTraduzivel(places[next + kAhead].object.get());
}

// The first place from there on that does not continue the object of the place before it.
size_t BehindObject(std::span<const Place> places, size_t place);

}  // namespace cli
