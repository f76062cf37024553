// Finding and changing single groups of a record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Store.h"
#include "platform/text/OdString.h"

namespace groups {

// Inside a record: where its own groups stand, those of an embedded object, and the xdata.
struct Layout {
    uint32_t ownEnd = 0;         // of the record's own groups
    uint32_t embeddedBegin = 0;  // the 101 group; 0 for none
    uint32_t embeddedEnd = 0;
    uint32_t xdataBegin = 0;  // the first 1001 group, or the end of the record
    uint32_t size = 0;
};
Layout LayoutOf(const dxf::Store& store, dxf::RecordIndex index);

// The first own group of that code at or behind `from`, ahead of embedded objects and xdata; groups
// of applications between 102 { and 102 } are passed over.
std::optional<dxf::Group> Find(const dxf::Store& store, dxf::RecordIndex index, int code,
                               uint32_t from = 0);

// Its text, decoded; empty when there is no such group.
OdString Text(const dxf::Store& store, dxf::RecordIndex index, int code, uint32_t from = 0);
OdString Decode(const dxf::Store& store, std::string_view raw);

// A replacement of the bytes from begin to end of a record.
struct Edit {
    uint32_t begin;
    uint32_t end;
    std::string bytes;
};
// The edits in ascending order, not overlapping. Groups put behind a last line that has no line end
// get one first.
void Apply(dxf::Store& store, dxf::RecordIndex index, const std::vector<Edit>& edits);

// The edit that gives a group another value and keeps the writing of its code line.
Edit ValueEdit(const dxf::Store& store, dxf::RecordIndex index, const dxf::Group& group,
               std::string encoded);

// Bytes that a text may have: 2049, and 255 before R2000.
size_t TextLimit(const dxf::Store& store);

// Raises OdError (eStringTooLong) that names the handle, the length and the limit.
void CheckLength(const char16_t* what, uint64_t handle, size_t bytes, size_t limit);

}  // namespace groups
