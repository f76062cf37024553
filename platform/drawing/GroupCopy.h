// GroupCopy: groups of one drawing written as groups of another one.
#pragma once

#include "platform/drawing/dxf/Store.h"

// Converts between ASCII and binary, code pages and line ends; what needs no conversion is copied
// as it stands.
class GroupCopy {
  public:
    GroupCopy(const dxf::Store& from, const dxf::Store& to);

    void Write(dxf::GroupWriter& writer, const dxf::Group& group) const;
    std::string Text(std::string_view raw) const;  // a value, encoded for the other drawing
    // Newer drawings have groups that older ones do not know.
    bool IsKnown(const dxf::Group& group, std::string_view subclass, bool embedded) const;
    // Whether drawings of the target's version have entities of that type.
    bool HasType(std::string_view type) const;
    bool SameVersion() const { return version == source; }

  private:
    const dxf::Store& from;
    const dxf::Store& to;
    dxf::Version source, version;
    bool samePage, sameFormat;
};
