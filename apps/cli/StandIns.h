// Texts of blocks that change places.
#pragma once

#include <unordered_set>

#include "apps/cli/Places.h"

namespace cli {

// A text in a block is found by what it says. One that says what another is about to say would be
// taken for that other one, so that it steps aside under a text that no drawing has, until it is
// written itself.
class StandIns {
  public:
    StandIns(const Lines& lines, std::span<const Place> places);

    // Gives a text back that could not be written.
    void PutBack(traducaoTQ::ETraduzivel& object, const structExpressao& line) const;

  private:
    void MoveAside(traducaoTQ::ETraduzivel& object);

    std::unordered_set<const traducaoTQ::ETraduzivel*> moved;
};

}  // namespace cli
