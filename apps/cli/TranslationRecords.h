// What the objects of a drawing say in each language, stored in the drawing.
#pragma once

#include "apps/cli/TranslationTable.h"
#include "platform/drawing/dxf/Store.h"

namespace cli {

// Stores an object's text in the source and in the target language. In the other languages it keeps
// what was stored before, and takes the dictionary's text where there is none. Gives the reason
// when the object cannot have a record, else an empty text.
std::string RecordText(const dxf::Store& drawing, const TranslationTable& table,
                       const traducaoTQ::ETraduzivel& object, const structExpressao& line);

// The entries of the root dictionary that recording writes to.
std::vector<std::u16string> RecordKeys();

}  // namespace cli
