// Building a display list from a drawing.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/painter/DisplayList.h"
#include "platform/drawing/DbDatabase.h"

namespace painter {

struct BuildOptions {
    // Names of pages; their layers $DE, $SELO and $FORMATO belong to them. Without it the whole
    // model space is painted, whatever its layers.
    std::optional<std::vector<std::u16string>> pages;
    // Told now and then the part that is done, 0 to 1. False ends the work.
    std::function<bool(double)> progress;
    // Most shapes that are placed, since a drawing may repeat blocks without end; 0: a number that
    // no drawing of that size reaches without repeating them.
    size_t limit = 0;
};

// Nothing when progress ended the work. Needs a QGuiApplication, for the fonts. Layers that are off
// or frozen, invisible entities and attributes are not in the list. Never fails on a damaged
// drawing: what makes no sense is left out.
std::optional<DisplayList> BuildDisplayList(OdDbDatabase& drawing,
                                            const BuildOptions& options = {});

// The records of the entities on these pages in file order, or of the whole model space.
std::vector<dxf::RecordIndex> EntitiesOf(OdDbDatabase& drawing,
                                         const std::optional<std::vector<std::u16string>>& pages);

}  // namespace painter
