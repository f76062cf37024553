// The groups of one record, gathered for look-ups by code.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "apps/painter/Geometry.h"
#include "platform/drawing/dxf/Store.h"

namespace painter {

// Holds views on the store's bytes; valid until the record changes.
class Tags {
  public:
    // The record's own groups: without those of applications, comments, xdata and, unless it is
    // asked for instead, an embedded object.
    void Read(const dxf::Store& store, dxf::RecordIndex record);
    void ReadEmbedded(const dxf::Store& store, dxf::RecordIndex record);
    // Some of the groups of another record.
    void Assign(std::span<const dxf::Group> some) { groups.assign(some.begin(), some.end()); }

    std::span<const dxf::Group> All() const { return groups; }
    const dxf::Group* Find(int code) const;  // the first of that code; null for none
    bool Has(int code) const { return Find(code) != nullptr; }
    double Real(int code, double otherwise = 0) const;
    int Int(int code, int otherwise = 0) const;
    std::string_view Raw(int code) const;  // "" for none
    Point3 Point(int code) const;          // x at the code, y 10 and z 20 above it
    Point3 Extrusion() const;              // (0, 0, 1) without one

  private:
    std::vector<dxf::Group> groups;
};

// Numbers of a drawing that nobody can paint (not finite, or beyond all measure) read as 0.
double RealOf(const dxf::Group& group);
int IntOf(const dxf::Group& group);  // bounded by the range of int

// The points whose x has that code, in their order.
std::vector<Point3> PointsOf(const Tags& tags, int code);

}  // namespace painter
