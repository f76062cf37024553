// GroupList: the groups of one record, to be read and changed by their place.
#pragma once

#include <string>
#include <vector>

#include "platform/drawing/GePoint3d.h"
#include "platform/drawing/dxf/Store.h"

// What is not changed is written back byte for byte. Valid while nobody else changes the record.
class GroupList {
  public:
    static constexpr size_t npos = static_cast<size_t>(-1);

    GroupList(dxf::Store& store, dxf::RecordIndex index);

    size_t size() const { return items.size(); }
    int code(size_t i) const { return items[i].group.code; }
    const dxf::Group& group(size_t i) const { return items[i].group; }
    // Where the record's own groups end: an embedded object, its xdata, or all.
    size_t ownEnd() const { return own; }
    size_t xdataBegin() const { return xdata; }
    // Groups of applications between 102 { and 102 } are passed over.
    size_t find(int code, size_t from = 0, size_t to = npos) const;

    double number(size_t i) const;                   // as it stands now, also after setNumber
    double numberOf(int code, double absent) const;  // of the first own group of that code
    void setNumber(size_t i, double value);          // the number that stands there is no change
    // x stands at i, y and z behind it; without z it is 0, and is not written.
    OdGePoint3d point(size_t i) const;
    void setPoint(size_t i, const OdGePoint3d& point);
    OdGeVector3d vector(size_t i) const { return point(i).asVector(); }
    void setVector(size_t i, const OdGeVector3d& v) { setPoint(i, {v.x, v.y, v.z}); }

    void insertBefore(size_t i, const std::string& groups);
    dxf::GroupWriter newWriter() const { return store.NewWriter(index); }
    void apply();  // into the record; nothing where nothing changed

  private:
    struct Item {
        dxf::Group group;
        std::string before;  // groups put in ahead of it
        std::string bytes;   // in place of the group; empty: as it stands
        double number;       // once it was set
    };
    bool hasZ(size_t i) const;

    dxf::Store& store;
    dxf::RecordIndex index;
    std::vector<Item> items;
    size_t own, xdata;
};
