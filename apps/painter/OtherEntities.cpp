// Leaders, multi-lines, wipeouts and the frames of images.
#include "apps/painter/Curves.h"
#include "apps/painter/Entities.h"

namespace painter {

namespace {

// The corners of an image or wipeout: its clipping boundary where it has one.
void AddFrame(const Entity& entity) {
    const Tags& tags = entity.tags;
    const Point3 u = tags.Point(11), v = tags.Point(12), size = tags.Point(13);
    std::vector<Point3> corners = PointsOf(tags, 14);
    if (corners.size() == 2) {
        const Point3 a = corners[0], b = corners[1];
        corners = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
    } else if (corners.empty()) {
        corners = {{-0.5, -0.5, 0},
                   {size.x - 0.5, -0.5, 0},
                   {size.x - 0.5, size.y - 0.5, 0},
                   {-0.5, size.y - 0.5, 0}};
    }
    corners.push_back(corners.front());
    // Boundaries count pixels from the middle of the first one, downwards.
    const Point3 origin = tags.Point(10);
    for (const Point3& corner : corners) {
        entity.shape.path.LineTo(origin + u * (corner.x + 0.5) + v * (size.y - corner.y - 0.5));
    }
}

}  // namespace

void ReadLeader(const Entity& entity) {
    const std::vector<Point3> points = PointsOf(entity.tags, 10);
    for (const Point3& point : points) entity.shape.path.LineTo(point);
    entity.EmitPath(ShapeKind::Stroke);
}

// A vertex has its point, the direction along which its elements stand apart, and for each element
// a list of lengths, the first of which is the distance from the point.
void ReadMultiLine(const Entity& entity) {
    constexpr size_t kMostElements = 16;
    std::vector<Path> elements;
    Point3 vertex, mitre;
    size_t element = 0;
    bool first = false;
    for (const dxf::Group& group : entity.tags.All()) {
        const double value = RealOf(group);
        switch (group.code) {
            case 11:
                vertex = {value, 0, 0};
                element = 0;
                break;
            case 21:
                vertex.y = value;
                break;
            case 31:
                vertex.z = value;
                break;
            case 13:
                mitre.x = value;
                break;
            case 23:
                mitre.y = value;
                break;
            case 33:
                mitre.z = value;
                break;
            case 74:
                first = true;
                break;
            case 41:
                if (!first || element >= kMostElements) break;
                first = false;
                if (element == elements.size()) elements.emplace_back();
                elements[element++].LineTo(vertex + mitre * value);
                break;
            default:
                break;
        }
    }
    const bool closed = entity.tags.Int(71) & 2;
    for (Path& path : elements) {
        if (closed) path.LineTo(path.points.front());
        entity.shape.path = std::move(path);
        entity.EmitPath(ShapeKind::Stroke);
    }
}

void ReadWipeout(const Entity& entity) {
    entity.shape.style.colour = kBackground;
    AddFrame(entity);
    entity.EmitPath(ShapeKind::Fill);
}

void ReadImage(const Entity& entity) {
    AddFrame(entity);
    entity.EmitPath(ShapeKind::Stroke);
}

}  // namespace painter
