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

    // A language in use. Throws cli::Error that lists them.
    const Language& Find(const std::string& keyOrName) const;

    // What was asked for, else the project's language, else the first in use.
    const Language& Source(const std::string& asked, int projectLanguage) const;

  private:
    std::vector<Language> all;
};

bool InUse(const Language& language);

// The language by key first, then by its exact name, then by its name in any case.
const Language* FindLanguage(const std::vector<Language>& languages, const std::string& keyOrName);

}  // namespace cli
