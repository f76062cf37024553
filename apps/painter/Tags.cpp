// The groups of one record.
#include "apps/painter/Tags.h"

#include <algorithm>
#include <climits>

namespace painter {

namespace {

constexpr int kEmbeddedObject = 101, kControl = 102, kComment = 999, kXdata = 1000;

}  // namespace

double RealOf(const dxf::Group& group) {
    constexpr double kLimit = 1e15;
    const double value = group.AsDouble();
    return std::abs(value) < kLimit ? value : 0.0;  // false for what is no number, too
}

int IntOf(const dxf::Group& group) {
    return static_cast<int>(std::clamp<int64_t>(group.AsInt(), -INT_MAX, INT_MAX));
}

void Tags::Read(const dxf::Store& store, dxf::RecordIndex record) {
    groups.clear();
    auto reader = store.Groups(record);
    dxf::Group group;
    bool inControl = false;
    while (reader.Next(group)) {
        if (group.code == kControl) inControl = group.value.starts_with('{');
        if (group.code == kEmbeddedObject || group.code >= kXdata) break;
        if (inControl || group.code == kControl || group.code == kComment) continue;
        groups.push_back(group);
    }
}

void Tags::ReadEmbedded(const dxf::Store& store, dxf::RecordIndex record) {
    groups.clear();
    auto reader = store.Groups(record);
    dxf::Group group;
    bool inside = false;
    while (reader.Next(group) && group.code < kXdata) {
        if (inside) groups.push_back(group);
        if (group.code == kEmbeddedObject) inside = true;
    }
}

const dxf::Group* Tags::Find(int code) const {
    for (const dxf::Group& group : groups) {
        if (group.code == code) return &group;
    }
    return nullptr;
}

double Tags::Real(int code, double otherwise) const {
    const dxf::Group* group = Find(code);
    return group ? RealOf(*group) : otherwise;
}

int Tags::Int(int code, int otherwise) const {
    const dxf::Group* group = Find(code);
    return group ? IntOf(*group) : otherwise;
}

std::string_view Tags::Raw(int code) const {
    const dxf::Group* group = Find(code);
    return group ? group->value : std::string_view();
}

Point3 Tags::Point(int code) const { return {Real(code), Real(code + 10), Real(code + 20)}; }

Point3 Tags::Extrusion() const {
    return Has(210) || Has(220) || Has(230) ? Point(210) : Point3{0, 0, 1};
}

std::vector<Point3> PointsOf(const Tags& tags, int code) {
    std::vector<Point3> points;
    for (const dxf::Group& group : tags.All()) {
        if (group.code == code) points.push_back({RealOf(group), 0, 0});
        if (points.empty()) continue;
        if (group.code == code + 10) points.back().y = RealOf(group);
        if (group.code == code + 20) points.back().z = RealOf(group);
    }
    return points;
}

}  // namespace painter
