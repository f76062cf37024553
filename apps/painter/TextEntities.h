// What the readers of texts share.
#pragma once

#include "apps/painter/Entities.h"
#include "apps/painter/TextCodes.h"

namespace painter {

// Emits a line of text whose baseline begins at `place`'s origin, in units of the em.
void EmitText(const Entity& entity, const Matrix& place, std::u16string characters, uint16_t font,
              double advance, double tracking = 1);

// Emits a line along a text, from one place of its baseline to another.
void EmitRule(const Entity& entity, const Matrix& place, const Font& font, Rule rule, double from,
              double to);

// Slanted to the right by that many degrees, bounded to what can be read.
Matrix Slanted(double degrees);

}  // namespace painter
