// The language of a project by number and by name.
#pragma once

#include <string>

#include "apps/cli/Languages.h"
#include "apps/cli/Session.h"

namespace cli {

// The dictionary tells names of languages. One that the options name must open; without one,
// languages are known by their key alone.
class LanguageNames {
  public:
    LanguageNames(const GeneralOptions& general, Session& session);

    int KeyOf(const std::string& language) const;  // throws cli::Error for an unknown one
    std::string NameOf(int key) const;             // "3 Deutsch", "not set"

  private:
    bool hasDatabase = false;
};

}  // namespace cli
