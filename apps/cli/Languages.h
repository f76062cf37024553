// The languages of the dictionary as a command is given them: by key or by name.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "translator/langdb/IBDIdiomas.h"

namespace cli {

using Language = traducaoTQ::IBDIdiomas::structIdioma;

class Languages {
  public:
    Languages();  // those of the open database; throws cli::Error when there are none

    const std::vector<Language>& All() const { return all; }

    // A language in use, by its key, else its exact name, else its name in any case. Throws
    // cli::Error that lists them, also when several of them bear the name.
    const Language& Find(const std::string& keyOrName) const;

    // What was asked for, else the project's language, else the first in use.
    const Language& Source(const std::string& asked, int projectLanguage) const;

  private:
    std::vector<Language> all;
};

bool InUse(const Language& language);

// Null when there is none.
const Language* LanguageOfKey(const std::vector<Language>& languages, const std::string& key);

}  // namespace cli
