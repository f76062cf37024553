// The language of a project by number and by name.
#include "apps/cli/ProjectLanguage.h"

#include <charconv>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "host/Error.h"

namespace cli {

namespace {

int ToNumber(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size() && number > 0;
    return whole ? number : 0;
}

}  // namespace

LanguageNames::LanguageNames(const GeneralOptions& general, Session& session) {
    try {
        session.OpenDatabase();
        hasDatabase = true;
    } catch (const host::Error& error) {
        if (NamesDatabase(general)) throw;
        Output(general).Detail(error.what());
    }
}

int LanguageNames::KeyOf(const std::string& language) const {
    if (hasDatabase) return ToNumber(Utf8(Languages().Find(language).key));
    const int key = ToNumber(language);
    if (key > 0) return key;
    throw Error("unknown language \"" + language +
                "\"; there is no dictionary that tells names: give the key, or --database");
}

std::string LanguageNames::NameOf(int key) const {
    if (key < 0) return "not set";
    const std::string number = std::to_string(key);
    if (!hasDatabase) return number;
    const auto languages = traducaoTQ::IBDIdiomas().GetAllLang();
    const Language* language = LanguageOfKey(languages, number);
    return language ? number + " " + Utf8(language->descr) : number;
}

}  // namespace cli
