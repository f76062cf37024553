// Hatches: their boundaries, and what fills them.
#include <algorithm>

#include "apps/painter/Curves.h"
#include "apps/painter/Entities.h"
#include "apps/painter/HatchPattern.h"

namespace painter {

namespace {

// Walks the groups of a hatch, whose codes mean different things from place to place.
class Cursor {
  public:
    explicit Cursor(std::span<const dxf::Group> groups) : groups(groups) {}

    bool Done() const { return place >= groups.size(); }
    const dxf::Group& Here() const { return groups[place]; }
    void Step() { ++place; }
    // Whether the present group has that code; then it is passed.
    bool Take(int code, double& value) {
        if (Done() || Here().code != code) return false;
        value = RealOf(Here());
        Step();
        return true;
    }
    double Real(int code) {
        double value = 0;
        Take(code, value);
        return value;
    }
    int Int(int code) {
        if (Done() || Here().code != code) return 0;
        const int value = IntOf(Here());
        Step();
        return value;
    }
    Point3 Point(int code) {
        const double x = Real(code);
        return {x, Real(code + 10), 0};
    }
    // Never more than there are groups left, whatever the file says.
    int Count(int code) {
        return static_cast<int>(
            std::clamp<int64_t>(Int(code), 0, static_cast<int64_t>(groups.size() - place)));
    }

  private:
    std::span<const dxf::Group> groups;
    size_t place = 0;
};

void ReadPolylinePath(Cursor& cursor, Path& area) {
    cursor.Int(72);
    cursor.Int(73);  // an area is closed anyhow
    const int count = cursor.Count(93);
    std::vector<std::pair<Point3, double>> vertices;
    for (int i = 0; i < count; ++i) {
        const Point3 point = cursor.Point(10);
        vertices.push_back({point, cursor.Real(42)});
    }
    if (vertices.empty()) return;
    area.MoveTo(vertices[0].first);
    for (size_t i = 0; i < vertices.size(); ++i) {
        AddBulge(area, vertices[(i + 1) % vertices.size()].first, vertices[i].second);
    }
}

// Clockwise arcs tell their angles mirrored.
void AddArcEdge(Cursor& cursor, Path& area, const Point3& centre, const Point3& major, double ratio,
                bool joined) {
    const double start = cursor.Real(50), end = cursor.Real(51);
    const bool forward = cursor.Int(73) != 0;
    const double sweep = SweepOf(start, end);
    const Point3 minor{-major.y * ratio, major.x * ratio, 0};
    const double sign = forward ? 1 : -1;
    AddArc(area, centre, major, minor, sign * Radians(start), sign * sweep, joined);
}

void AddSplineEdge(Cursor& cursor, Path& area, bool joined) {
    Spline spline;
    spline.degree = cursor.Int(94);
    const bool rational = cursor.Int(73) != 0;
    cursor.Int(74);
    const int knots = cursor.Count(95), controls = cursor.Count(96);
    for (int i = 0; i < knots; ++i) spline.knots.push_back(cursor.Real(40));
    for (int i = 0; i < controls; ++i) {
        spline.controls.push_back(cursor.Point(10));
        double weight = 1;
        if (cursor.Take(42, weight) && rational) spline.weights.push_back(weight);
    }
    if (spline.weights.size() != spline.controls.size()) spline.weights.clear();
    const int fits = cursor.Count(97);
    for (int i = 0; i < fits; ++i) cursor.Point(11);
    AddSpline(area, spline, joined);
}

void ReadEdge(Cursor& cursor, Path& area, bool joined) {
    enum { kLine = 1, kArc, kEllipse, kSpline };
    const int type = cursor.Int(72);
    if (type == kLine) {
        const Point3 from = cursor.Point(10), to = cursor.Point(11);
        if (joined) {
            area.LineTo(from);
        } else {
            area.MoveTo(from);
        }
        area.LineTo(to);
    } else if (type == kArc) {
        const Point3 centre = cursor.Point(10);
        AddArcEdge(cursor, area, centre, {cursor.Real(40), 0, 0}, 1, joined);
    } else if (type == kEllipse) {
        const Point3 centre = cursor.Point(10), major = cursor.Point(11);
        AddArcEdge(cursor, area, centre, major, cursor.Real(40), joined);
    } else if (type == kSpline) {
        AddSplineEdge(cursor, area, joined);
    }
}

void ReadBoundary(Cursor& cursor, Path& area) {
    constexpr int kPolyline = 2, kTextBox = 8;
    const int flags = cursor.Int(92);
    Path part;
    if (flags & kPolyline) {
        ReadPolylinePath(cursor, part);
    } else {
        const int edges = cursor.Count(93);
        for (int i = 0; i < edges; ++i) ReadEdge(cursor, part, !part.points.empty());
    }
    if (flags & kTextBox) return;
    area.points.insert(area.points.end(), part.points.begin(), part.points.end());
    area.verbs.insert(area.verbs.end(), part.verbs.begin(), part.verbs.end());
}

std::vector<PatternLine> ReadPattern(Cursor& cursor) {
    std::vector<PatternLine> pattern;
    for (int left = cursor.Count(78); left > 0; --left) {
        PatternLine line;
        line.angle = cursor.Real(53);
        line.base.x = cursor.Real(43);
        line.base.y = cursor.Real(44);
        line.offset.x = cursor.Real(45);
        line.offset.y = cursor.Real(46);
        for (int dashes = cursor.Count(79); dashes > 0; --dashes) {
            line.dashes.push_back(cursor.Real(49));
        }
        pattern.push_back(std::move(line));
    }
    return pattern;
}

// What the groups between the boundaries and the end tell.
struct Filling {
    Path area;
    std::vector<PatternLine> pattern;
    double elevation = 0;
};

Filling ReadFilling(const Tags& tags) {
    Filling filling;
    Cursor cursor(tags.All());
    filling.elevation = tags.Real(30);
    bool boundaries = false;
    while (!cursor.Done()) {
        const int code = cursor.Here().code;
        if (code == 92 && boundaries) {
            ReadBoundary(cursor, filling.area);
        } else if (code == 78) {
            filling.pattern = ReadPattern(cursor);
        } else {
            boundaries |= code == 91;
            cursor.Step();
        }
    }
    return filling;
}

void Finish(const Entity& entity, const Filling& filling, ShapeKind kind) {
    for (Point3& point : entity.shape.path.points) point.z = filling.elevation;
    Transform(entity.shape.path, ExtrusionMatrix(entity.tags.Extrusion()));
    entity.EmitPath(kind);
}

}  // namespace

void ReadHatch(const Entity& entity) {
    Filling filling = ReadFilling(entity.tags);
    Path& path = entity.shape.path;
    entity.shape.style.lineType = kContinuous;
    if (entity.tags.Int(70) & 1) {
        if (entity.tags.Int(450) == 1 && entity.tags.Has(421)) {  // a gradient: its first colour
            entity.shape.style.colour = 0xFF000000u | static_cast<Colour>(entity.tags.Int(421));
        }
        path = std::move(filling.area);
        Finish(entity, filling, ShapeKind::Fill);
        return;
    }
    if (!AddPattern(path, filling.area, filling.pattern)) path = std::move(filling.area);
    Finish(entity, filling, ShapeKind::Stroke);
}

}  // namespace painter
