// The 256 colours that drawings name by number.
#pragma once

#include "apps/painter/Shape.h"
#include "apps/painter/Tags.h"

namespace painter {

// 0 is that of the block, 256 that of the layer, 7 the foreground; other numbers outside 1 to 255
// are taken as the layer's.
Colour ColourOfIndex(int index);
Colour ColourOfRgb(int rgb);  // 0xRRGGBB

// Of an entity or layer: its true colour, else the number; otherwise when it has neither.
Colour ColourOf(const Tags& tags, Colour otherwise);

}  // namespace painter
