// The groups of one record.
#include "apps/painter/Tags.h"

#include <algorithm>
#include <climits>
#include <optional>

namespace painter {

namespace {

constexpr int kEmbeddedObject = 101, kControl = 102, kComment = 999, kXdata = 1000;

// Takes the digits from the front of the text.
int64_t TakeDigits(std::string_view& text, int64_t before) {
    size_t count = 0;
    for (unsigned digit; count < text.size() && (digit = unsigned(text[count]) - '0') <= 9; ++count)
        before = before * 10 + int64_t{digit};
    text.remove_prefix(count);
    return before;
}

// Numbers as nearly all programs write them: digits with a point. Up to 15 of them and the power of
// ten are exact, so that the quotient is the nearest number, as a full conversion has it.
std::optional<double> UsualReal(std::string_view text) {
    constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr size_t kMostDigits = 15;
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const bool point = text.find('.') != text.npos;
    const size_t count = text.size() - (point ? 1 : 0);
    if (count == 0 || count > kMostDigits) return std::nullopt;
    int64_t digits = TakeDigits(text, 0);
    size_t decimals = 0;
    if (point && text.starts_with('.')) {
        text.remove_prefix(1);
        decimals = text.size();
        digits = TakeDigits(text, digits);
    }
    if (!text.empty()) return std::nullopt;
    const double value = static_cast<double>(digits) / kPowers[decimals];
    return negative ? -value : value;
}

}  // namespace

double RealOf(const dxf::Group& group) {
    constexpr double kLimit = 1e15;
    if (group.format == dxf::Format::Ascii) {
        if (const auto usual = UsualReal(group.value)) return *usual;
    }
    const double value = group.AsDouble();
    return std::abs(value) < kLimit ? value : 0.0;  // false for what is no number, too
}

int IntOf(const dxf::Group& group) {
    return static_cast<int>(std::clamp<int64_t>(group.AsInt(), -INT_MAX, INT_MAX));
}

void Tags::Read(const dxf::Store& store, dxf::RecordIndex record) {
    Clear();
    auto reader = store.Groups(record);
    bool inControl = false;
    for (dxf::Group* group = &Free(); reader.Next(*group); group = &Free()) {
        const int code = group->code;
        if (code == kControl) inControl = group->value.starts_with('{');
        if (code == kEmbeddedObject || code >= kXdata) break;
        if (!inControl && code != kControl && code != kComment) Keep();
    }
}

void Tags::ReadEmbedded(const dxf::Store& store, dxf::RecordIndex record) {
    Clear();
    auto reader = store.Groups(record);
    bool inside = false;
    for (dxf::Group* group = &Free(); reader.Next(*group); group = &Free()) {
        if (group->code >= kXdata) break;
        const bool begins = group->code == kEmbeddedObject;
        if (inside) Keep();
        inside |= begins;
    }
}

void Tags::Assign(std::span<const dxf::Group> some) {
    Clear();
    for (const dxf::Group& group : some) {
        Free() = group;
        Keep();
    }
}

void Tags::Clear() {
    for (const dxf::Group& group : All()) {
        if (unsigned(group.code) < kIndexed) firsts[static_cast<size_t>(group.code)] = 0;
    }
    count = 0;
}

inline dxf::Group& Tags::Free() {
    constexpr size_t kUsual = 32;
    if (count == groups.size()) groups.resize(std::max(count * 2, kUsual));
    return groups[count];
}

inline void Tags::Keep() {
    const int code = groups[count++].code;
    if (unsigned(code) >= kIndexed) return;
    uint32_t& first = firsts[static_cast<size_t>(code)];
    if (first == 0) first = static_cast<uint32_t>(count);
}

const dxf::Group* Tags::FindByWalk(int code) const {
    for (const dxf::Group& group : All()) {
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

Point3 Tags::Extrusion() const { return HasExtrusion() ? Point(210) : Point3{0, 0, 1}; }

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
