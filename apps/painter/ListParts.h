// A display list that is put together of parts.
#pragma once

#include "apps/painter/Placer.h"

namespace painter {

void AddItem(ListPart& part, const Item& item);  // with its run

// The part comes behind those of the list, its numbers changed to those of the list where they
// differ. `fontNumbers` are the list's, by the part's.
void Append(DisplayList& list, BuiltPart&& built, const std::vector<uint16_t>& fontNumbers);

}  // namespace painter
