// The groups of one record of a drawing file as a list of values that can be compared.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Store.h"

namespace cli {

struct Item {
    enum class Part : uint8_t { Own, Embedded, XData };

    int code = -1;
    std::string_view value;  // raw; the chunks of an mtext joined
    Part part = Part::Own;   // of its record
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

// Reads the record whose 0-group stands at position of a file in the format of the store's. False
// when no 0-group stands there. Fills the record anew; its views point into the file and into
// itself.
bool ReadRecord(const dxf::Store& store, std::string_view file, size_t position, RawRecord& record);

// Reads of two records the texts and extended data that differ, which become their items. False
// when they may differ in more. old is the whole record; now begins with the other one, whose end
// there is told. same: so many bytes at their begin are equal.
bool ReadDifferences(const dxf::Store& store, std::string_view old, std::string_view now,
                     size_t same, RawRecord& oldRecord, RawRecord& nowRecord);

size_t CommonPrefix(std::string_view a, std::string_view b);  // how many bytes are equal

}  // namespace cli
