// A drawing's texts grouped into lines and matched with the dictionary.
#pragma once

#include <memory>
#include <optional>

#include "apps/cli/Languages.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Scan.h"
#include "apps/cli/SecondThread.h"
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

// What a command needs of the dictionary. Unless all languages are kept, only source and target
// stay in memory.
enum class Keep { AllLanguages, SourceAndTarget };
struct Dictionary {
    std::vector<Language> languages;  // all of them
    // Their columns bear keys for names, since two languages may have one name. Null: there are
    // none, or none are asked for.
    std::unique_ptr<traducaoTQ::IBDIdiomas::structTraducoes> terms;
};

// Opens the session's dictionary, and reads it on the second thread from then on. The session must
// outlive the reading.
Awaited<Dictionary> ReadDictionary(Session& session, const LanguageOptions& options, Keep keep);

// Groups the objects of the session's drawing and matches them.
TranslationTable MakeTable(Session& session, Dictionary dictionary,
                           traducaoTQ::ListaTraduziveis objects, const LanguageOptions& options,
                           Keep keep);

// All of it, for a command that only looks: opens dictionary and drawing, scans, groups, matches.
TranslationTable ReadTable(Session& session, const std::string& drawing, const ScanOptions& scan,
                           const LanguageOptions& options, Progress& progress);

const char* StateOf(const structExpressao& line);  // "untranslated", "automatic", ...

// A line that has a translation to write. One of blanks alone is none: the text would be lost.
bool IsTranslated(const structExpressao& line);

}  // namespace cli
