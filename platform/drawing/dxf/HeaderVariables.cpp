// The header variables that the store itself needs.
#include "platform/drawing/dxf/HeaderVariables.h"

#include <charconv>

namespace dxf {

namespace {

struct Release {
    int number;  // of "AC1015"; the first of the release
    Version version;
};

constexpr Release kReleases[] = {
    {1032, Version::R2018}, {1027, Version::R2013}, {1024, Version::R2010}, {1021, Version::R2007},
    {1018, Version::R2004}, {1015, Version::R2000}, {1014, Version::R14},   {1010, Version::R13},
    {1009, Version::R12},   {0, Version::Older},
};

std::string_view WithoutBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

HeaderVariables ReadHeaderVariables(GroupReader groups) {
    HeaderVariables header;
    std::string_view variable;
    Group group;
    while (groups.Next(group)) {
        if (group.code == 9) {
            variable = WithoutBlanks(group.value);
        } else if (group.code == 1 && variable == "$ACADVER") {
            header.version = WithoutBlanks(group.value);
        } else if (group.code == 3 && variable == "$DWGCODEPAGE") {
            header.codePage = WithoutBlanks(group.value);
        } else if (group.code == 5 && variable == "$HANDSEED") {
            header.handSeed = group.AsHandle();
            header.seedBegin = group.begin;
            header.seedEnd = group.end;
        }
    }
    return header;
}

Version VersionOfName(std::string_view acadver) {
    int number = 0;
    if (!acadver.starts_with("AC")) return Version::R12;
    const char* const end = acadver.data() + acadver.size();
    if (std::from_chars(acadver.data() + 2, end, number).ptr != end) return Version::R12;
    for (const Release& release : kReleases)
        if (number >= release.number) return release.version;
    return Version::R12;
}

}  // namespace dxf
