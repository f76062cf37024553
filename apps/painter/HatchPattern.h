// The lines of a hatch pattern inside an area.
#pragma once

#include <vector>

#include "apps/painter/Shape.h"

namespace painter {

// A family of parallel lines, as a hatch defines it, in the coordinates of the hatch.
struct PatternLine {
    double angle = 0;  // degrees
    Point3 base;
    Point3 offset;               // from one line to the next
    std::vector<double> dashes;  // below 0: gaps; empty for a continuous line
};

// The parts of the lines that lie inside the area, by the odd-even rule. False when they would be
// too many to be worth painting; lines is then as it was.
bool AddPattern(Path& lines, const Path& area, const std::vector<PatternLine>& pattern);

}  // namespace painter
