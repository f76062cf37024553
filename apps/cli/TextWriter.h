// Writes the translations of lines into the drawing in memory, and finds out what became of each.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/cli/Certificate.h"
#include "apps/cli/Progress.h"
#include "apps/cli/TranslationTable.h"

namespace cli {

struct Unwritten {
    std::string kind, key, text, reason;
};

struct Written {
    std::vector<ExpectedText> texts;  // what the new file is to hold; the texts are the lines'
    std::vector<Unwritten> unwritten;
};

// Told of every object that holds its translation now; gives what is to be reported of it, or an
// empty text.
using OnWritten =
    std::function<std::string(const traducaoTQ::ETraduzivel&, const structExpressao&)>;

// Writes every object of every translated line. A text in a block is written once, however many
// references show it. A text too long for its place is reported, any other error raised; what a
// SetTexto may pass over in silence is read back. The other lines and all objects are gone
// afterwards: the edits of a large drawing need their memory.
Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress);

}  // namespace cli
