// Lines, points, circles, arcs, ellipses, splines, solids and faces.
#include <algorithm>

#include "apps/painter/Curves.h"
#include "apps/painter/Entities.h"

namespace painter {

namespace {

// Arcs and circles: their centre stands in the coordinates of their extrusion.
void AddCircle(const Entity& entity, double startDegrees, double sweep) {
    const Matrix plane = ExtrusionMatrix(entity.tags.Extrusion());
    const double radius = entity.tags.Real(40);
    AddArc(entity.shape.path, plane.Map(entity.tags.Point(10)), plane.x * radius, plane.y * radius,
           Radians(startDegrees), sweep);
    entity.EmitPath(ShapeKind::Stroke);
}

// The groups of a helix behind those of its spline have the same codes.
Tags SplineTags(const Tags& all) {
    const auto groups = all.All();
    const auto end = std::find_if(groups.begin(), groups.end(), [](const dxf::Group& group) {
        return group.code == 100 && group.value == "AcDbHelix";
    });
    Tags tags;
    tags.Assign({groups.begin(), end});
    return tags;
}

std::vector<double> RealsOf(const Tags& tags, int code) {
    std::vector<double> numbers;
    for (const dxf::Group& group : tags.All()) {
        if (group.code == code) numbers.push_back(RealOf(group));
    }
    return numbers;
}

}  // namespace

void ReadLine(const Entity& entity) {
    Path& path = entity.shape.path;
    path.MoveTo(entity.tags.Point(10));
    path.LineTo(entity.tags.Point(11));
    entity.Emit(ShapeKind::Stroke);
}

void ReadPoint(const Entity& entity) {
    entity.shape.path.MoveTo(entity.tags.Point(10));
    entity.Emit(ShapeKind::Dot);
}

void ReadEndless(const Entity& entity) {
    const bool bothWays = entity.drawing.store.TypeName(entity.record) == "XLINE";
    constexpr double kFar = 1e7;
    const Point3 from = entity.tags.Point(10);
    const Point3 reach = Normalised(entity.tags.Point(11), {1, 0, 0}) * kFar;
    entity.shape.path.MoveTo(bothWays ? from - reach : from);
    entity.shape.path.LineTo(from + reach);
    entity.Emit(ShapeKind::Endless);
}

void ReadCircle(const Entity& entity) { AddCircle(entity, 0, 2 * M_PI); }

void ReadArc(const Entity& entity) {
    const double start = entity.tags.Real(50), end = entity.tags.Real(51);
    AddCircle(entity, start, SweepOf(start, end));
}

void ReadEllipse(const Entity& entity) {
    const Tags& tags = entity.tags;
    const Point3 major = tags.Point(11);
    const Point3 minor = Cross(Normalised(tags.Extrusion()), major) * tags.Real(40, 1);
    const double start = tags.Real(41), end = tags.Real(42, 2 * M_PI);
    double sweep = std::fmod(end - start, 2 * M_PI);
    if (sweep <= 1e-9) sweep += 2 * M_PI;
    AddArc(entity.shape.path, tags.Point(10), major, minor, start, sweep);
    entity.EmitPath(ShapeKind::Stroke);
}

void ReadSpline(const Entity& entity) {
    const Tags tags = SplineTags(entity.tags);
    Spline spline;
    spline.degree = tags.Int(71, 3);
    spline.closed = tags.Int(70) & 1;
    spline.knots = RealsOf(tags, 40);
    spline.weights = RealsOf(tags, 41);
    spline.controls = PointsOf(tags, 10);
    spline.fits = PointsOf(tags, 11);
    const auto& weights = spline.weights;
    const bool equal =
        std::adjacent_find(weights.begin(), weights.end(), std::not_equal_to<>()) == weights.end();
    if (equal || weights.size() != spline.controls.size()) spline.weights.clear();
    AddSpline(entity.shape.path, spline);
    entity.EmitPath(ShapeKind::Stroke);
}

// The third and fourth corner are told crosswise; three corners have the fourth on the third.
void ReadSolid(const Entity& entity) {
    const Matrix plane = ExtrusionMatrix(entity.tags.Extrusion());
    Path& path = entity.shape.path;
    for (const int code : {10, 11, entity.tags.Has(13) ? 13 : 12, 12, 10}) {
        path.LineTo(plane.Map(entity.tags.Point(code)));
    }
    entity.Emit(ShapeKind::Fill);
}

// A bit of group 70 hides an edge.
void ReadFace(const Entity& entity) {
    const Tags& tags = entity.tags;
    const Point3 corners[] = {tags.Point(10), tags.Point(11), tags.Point(12),
                              tags.Point(tags.Has(13) ? 13 : 12)};
    const int hidden = tags.Int(70);
    for (int i = 0; i < 4; ++i) {
        if (hidden & 1 << i) continue;
        entity.shape.path.MoveTo(corners[i]);
        entity.shape.path.LineTo(corners[(i + 1) % 4]);
    }
    entity.EmitPath(ShapeKind::Stroke);
}

}  // namespace painter
