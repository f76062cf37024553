// A display list that is put together of parts.
#pragma once

#include <vector>

#include "apps/painter/DisplayList.h"

namespace painter {

void AddItem(DisplayList& list, const Item& item);  // with its run

// The part's items, behind those of the list. `fontNumbers` are the list's, by the part's.
void Append(DisplayList& list, DisplayList&& part, const std::vector<uint16_t>& fontNumbers);

}  // namespace painter
