// The groups of one record of a drawing file as a list of values that can be compared.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Group.h"

namespace cli {

// How the bytes of a file are to be read.
struct GroupFormat {
    dxf::Format format = dxf::Format::Ascii;
    bool wideCodes = true;
};
GroupFormat GroupFormatOf(std::string_view file, dxf::Format format);

struct Item {
    int code = -1;
    std::string_view value;  // raw; the chunks of an mtext joined
    bool xdata = false;
    bool operator==(const Item&) const = default;
};

// A record found in the bytes of a file.
struct RawRecord {
    size_t begin = 0;  // in the file
    size_t end = 0;    // one past its last group
    std::string_view type;
    uint64_t handle = 0;
    uint64_t owner = 0;
    std::vector<Item> items;        // without the 0-group
    std::list<std::string> joined;  // the bytes of values that no single group holds
};

// Reads the record whose 0-group stands at position. False when no 0-group stands there. Fills the
// record anew; its views point into the file and into itself.
bool ReadRecord(std::string_view file, size_t position, GroupFormat format, RawRecord& record);

}  // namespace cli
