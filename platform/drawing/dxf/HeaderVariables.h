// The header variables that the store itself needs.
#pragma once

#include <string>

#include "platform/drawing/dxf/Group.h"

namespace dxf {

struct HeaderVariables {
    RecordIndex record = kNoRecord;  // the SECTION record that holds them
    std::string version;             // $ACADVER, "" when absent
    std::string codePage;            // $DWGCODEPAGE, "" when absent
    uint64_t handSeed = 0;           // $HANDSEED, 0 when absent
    // The group that holds its value, relative to the record; both 0 when absent.
    uint64_t seedBegin = 0, seedEnd = 0;
};

// groups: the record of the HEADER section. The field record is left alone.
HeaderVariables ReadHeaderVariables(GroupReader groups);

Version VersionOfName(std::string_view acadver);  // R12 for what is no version name

}  // namespace dxf
