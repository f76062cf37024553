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

template <class Test>
std::vector<const Language*> Every(const std::vector<Language>& languages, Test test) {
    std::vector<const Language*> found;
    for (const Language& language : languages) {
        if (test(language)) found.push_back(&language);
    }
    return found;
}

std::vector<const Language*> Meant(const std::vector<Language>& languages,
                                   const std::string& keyOrName) {
    if (const Language* found = LanguageOfKey(languages, keyOrName)) return {found};
    const std::u16string name = Utf16(keyOrName);
    const auto exact =
        Every(languages, [&](const Language& language) { return language.descr == name; });
    if (!exact.empty()) return exact;
    return Every(languages, [&](const Language& language) {
        return text::CompareNoCase(language.descr, name) == 0;
    });
}

}  // namespace

bool InUse(const Language& language) { return language.use == u"1"; }

const Language* LanguageOfKey(const std::vector<Language>& languages, const std::string& key) {
    const std::u16string wanted = Utf16(key);
    return First(languages, [&](const Language& language) { return language.key == wanted; });
}

Languages::Languages() : all(traducaoTQ::IBDIdiomas().GetAllLang()) {
    if (all.empty()) {
        throw Error(
            "the dictionary has no languages; make them with 'kelvara db init "
            "--languages FILE' or 'kelvara db add-language NAME'");
    }
}

const Language& Languages::Find(const std::string& keyOrName) const {
    auto found = Meant(all, keyOrName);
    if (found.empty()) throw Error("unknown language \"" + keyOrName + "\"; " + Listed(all));
    std::erase_if(found, [](const Language* language) { return !InUse(*language); });
    if (found.empty()) {
        throw Error("the language \"" + keyOrName + "\" is not in use; " + Listed(all));
    }
    if (found.size() > 1) {
        throw Error("several languages are named \"" + keyOrName + "\": give a key; " +
                    Listed(all));
    }
    return *found.front();
}

const Language& Languages::Source(const std::string& asked, int projectLanguage) const {
    if (!asked.empty()) return Find(asked);
    if (projectLanguage > 0) {
        const Language* found = LanguageOfKey(all, std::to_string(projectLanguage));
        if (found && InUse(*found)) return *found;
    }
    const Language* found = First(all, InUse);
    if (!found) throw Error("no language of the dictionary is in use");
    return *found;
}

}  // namespace cli
