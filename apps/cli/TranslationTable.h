// A drawing's texts grouped into lines and matched with the dictionary.
#pragma once

#include <optional>

#include "apps/cli/Languages.h"
#include "apps/cli/Scan.h"
#include "translator/dialogs/ITabelaExpressoes.h"

namespace cli {

using traducaoTQ::structExpressao;

struct TranslationTable {
    std::vector<Language> languages;  // all of the dictionary
    Language from;
    std::optional<Language> to;  // none: nothing is matched
    traducaoTQ::ListaTraduziveis objects;
    traducaoTQ::ITabelaExpressoes table;  // its lines point at the objects

    const traducaoTQ::ITabelaExpressoes::ListaExpressoes& Lines() const {
        return *table.expressoes;
    }
};

// Opens the session's dictionary and the drawing, and reads both at the same time.
TranslationTable ReadDictionaryAndDrawing(Session& session, const std::string& drawing);

// Scans the session's drawing and fills the table. Unless all languages of the dictionary are kept,
// only source and target stay in memory.
enum class Keep { AllLanguages, SourceAndTarget };
void FillTable(TranslationTable& table, Session& session, const Scan& scan,
               const LanguageOptions& options, Keep keep);

const char* StateOf(const structExpressao& line);  // "untranslated", "automatic", ...

// A line that has a translation to write. One of blanks alone is none: the text would be lost.
bool IsTranslated(const structExpressao& line);

}  // namespace cli
