// The groups of one record, gathered for look-ups by code.
#pragma once

#include <array>
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
    void Assign(std::span<const dxf::Group> some);

    std::span<const dxf::Group> All() const { return {groups.data(), count}; }
    // The first of that code; null for none.
    const dxf::Group* Find(int code) const {
        if (unsigned(code) >= kIndexed) return FindByWalk(code);
        const uint32_t place = firsts[static_cast<size_t>(code)];
        return place > 0 ? &groups[place - 1] : nullptr;
    }
    bool Has(int code) const { return Find(code) != nullptr; }
    double Real(int code, double otherwise = 0) const;
    int Int(int code, int otherwise = 0) const;
    std::string_view Raw(int code) const;  // "" for none
    Point3 Point(int code) const;          // x at the code, y 10 and z 20 above it
    bool HasExtrusion() const { return Has(210) || Has(220) || Has(230); }
    Point3 Extrusion() const;  // (0, 0, 1) without one

  private:
    static constexpr unsigned kIndexed = 512;

    void Clear();
    dxf::Group& Free();  // the place for the next group, which Keep takes among those that count
    void Keep();
    const dxf::Group* FindByWalk(int code) const;

    std::vector<dxf::Group> groups;  // those before count are the record's
    size_t count = 0;
    std::array<uint32_t, kIndexed> firsts{};  // by code: the group's place, from 1
};

// Numbers of a drawing that nobody can paint (not finite, or beyond all measure) read as 0.
double RealOf(const dxf::Group& group);
int IntOf(const dxf::Group& group);  // bounded by the range of int

// The points whose x has that code, in their order.
std::vector<Point3> PointsOf(const Tags& tags, int code);

}  // namespace painter
