// Look-up of languages.
#include "apps/cli/Languages.h"

#include <algorithm>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "platform/text/Conversion.h"

namespace cli {

namespace {

std::string Listed(const std::vector<Language>& languages) {
    std::string list;
    for (const Language& language : languages) {
        if (!InUse(language)) continue;
        if (!list.empty()) list += ", ";
        list += Utf8(language.key) + " " + Utf8(language.descr);
    }
    return list.empty() ? "no language is in use" : "the languages in use are " + list;
}

template <class Test>
const Language* First(const std::vector<Language>& languages, Test test) {
    const auto found = std::find_if(languages.begin(), languages.end(), test);
    return found == languages.end() ? nullptr : &*found;
}

}  // namespace

bool InUse(const Language& language) { return language.use == u"1"; }

const Language* FindLanguage(const std::vector<Language>& languages, const std::string& keyOrName) {
    const std::u16string wanted = Utf16(keyOrName);
    const auto byKey = [&](const Language& language) { return language.key == wanted; };
    const auto byName = [&](const Language& language) { return language.descr == wanted; };
    const auto byAnyCase = [&](const Language& language) {
        return text::CompareNoCase(language.descr, wanted) == 0;
    };
    if (const Language* found = First(languages, byKey)) return found;
    if (const Language* found = First(languages, byName)) return found;
    return First(languages, byAnyCase);
}

Languages::Languages() : all(traducaoTQ::IBDIdiomas().GetAllLang()) {
    if (all.empty()) {
        throw Error(
            "the dictionary has no languages; make them with 'kelvara db init "
            "--languages FILE' or 'kelvara db add-language NAME'");
    }
}

const Language& Languages::Find(const std::string& keyOrName) const {
    const Language* found = FindLanguage(all, keyOrName);
    if (!found) throw Error("unknown language \"" + keyOrName + "\"; " + Listed(all));
    if (!InUse(*found)) {
        throw Error("the language \"" + keyOrName + "\" is not in use; " + Listed(all));
    }
    return *found;
}

const Language& Languages::Source(const std::string& asked, int projectLanguage) const {
    if (!asked.empty()) return Find(asked);
    if (projectLanguage > 0) {
        const std::string key = std::to_string(projectLanguage);
        const Language* found = FindLanguage(all, key);
        if (found && InUse(*found)) return *found;
    }
    const Language* found = First(all, InUse);
    if (!found) throw Error("no language of the dictionary is in use");
    return *found;
}

}  // namespace cli
