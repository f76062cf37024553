// Polylines, old and light: bulges, widths, meshes.
#include <algorithm>

#include "apps/painter/Curves.h"
#include "apps/painter/Entities.h"

namespace painter {

namespace {

struct Vertex {
    Point3 point;
    double bulge = 0, startWidth = 0, endWidth = 0;
    int flags = 0;
    int faces[4] = {0, 0, 0, 0};  // of a polyface mesh: numbers of its vertices
};

enum PolylineFlag { kClosed = 1, k3d = 8, kMesh = 16, kClosedAcross = 32, kPolyface = 64 };
enum VertexFlag { kFrameOfSpline = 16, kFacePoint = 64, kFace = 128 };

// The stretches between vertices, the closing one included.
size_t StretchesOf(const std::vector<Vertex>& vertices, bool closed) {
    return vertices.empty() ? 0 : vertices.size() - (closed ? 0 : 1);
}

void AddVertices(Path& path, const std::vector<Vertex>& vertices, bool closed) {
    if (vertices.empty()) return;
    path.MoveTo(vertices[0].point);
    for (size_t i = 0; i < StretchesOf(vertices, closed); ++i) {
        AddBulge(path, vertices[(i + 1) % vertices.size()].point, vertices[i].bulge);
    }
}

// The side of a straight piece at a point, half the width to the left.
Point3 Aside(const Point3& from, const Point3& to, double width) {
    const Point3 along = Normalised(to - from, {1, 0, 0});
    return Point3{-along.y, along.x, 0} * (width / 2);
}

// One stretch as an area whose width changes evenly.
void AddTapered(Path& area, const Vertex& from, const Vertex& to) {
    Path line;
    line.MoveTo(from.point);
    AddBulge(line, to.point, from.bulge);
    line = Flattened(line);
    const size_t last = line.points.size() - 1;
    std::vector<Point3> back;
    for (size_t i = 0; i <= last; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(std::max<size_t>(last, 1));
        const double width = from.startWidth + (from.endWidth - from.startWidth) * part;
        const Point3 side =
            Aside(line.points[i > 0 ? i - 1 : 0], line.points[std::min(i + 1, last)], width);
        const Point3 left = line.points[i] + side;
        if (i == 0) {
            area.MoveTo(left);
        } else {
            area.LineTo(left);
        }
        back.push_back(line.points[i] - side);
    }
    for (auto point = back.rbegin(); point != back.rend(); ++point) area.LineTo(*point);
}

bool HasOneWidth(const std::vector<Vertex>& vertices) {
    const double width = vertices[0].startWidth;
    return std::all_of(vertices.begin(), vertices.end(), [&](const Vertex& vertex) {
        return vertex.startWidth == width && vertex.endWidth == width;
    });
}

// Vertices in the coordinates of the extrusion, `plane` their map.
void EmitFlat(const Entity& entity, const std::vector<Vertex>& vertices, bool closed,
              const Matrix& plane) {
    if (vertices.empty()) return;
    Path& path = entity.shape.path;
    const bool wide = std::any_of(vertices.begin(), vertices.end(), [](const Vertex& vertex) {
        return vertex.startWidth > 0 || vertex.endWidth > 0;
    });
    if (wide && !HasOneWidth(vertices)) {
        for (size_t i = 0; i < StretchesOf(vertices, closed); ++i) {
            AddTapered(path, vertices[i], vertices[(i + 1) % vertices.size()]);
            Transform(path, plane);
            entity.EmitPath(ShapeKind::Fill);
        }
        return;
    }
    AddVertices(path, vertices, closed);
    Transform(path, plane);
    entity.shape.width = vertices[0].startWidth;
    entity.EmitPath(wide ? ShapeKind::Wide : ShapeKind::Stroke);
}

void EmitLines(const Entity& entity, const std::vector<Point3>& points, bool closed) {
    for (const Point3& point : points) entity.shape.path.LineTo(point);
    if (closed && !points.empty()) entity.shape.path.LineTo(points[0]);
    entity.EmitPath(ShapeKind::Stroke);
}

// Rows and columns of vertices, each joined along and across.
void EmitMesh(const Entity& entity, const std::vector<Vertex>& vertices, int flags) {
    const bool smooth = entity.tags.Int(75) != 0;
    const auto along = static_cast<size_t>(std::max(entity.tags.Int(smooth ? 73 : 71), 0));
    const auto across = static_cast<size_t>(std::max(entity.tags.Int(smooth ? 74 : 72), 0));
    if (along == 0 || across == 0 || across > vertices.size() || along > vertices.size() / across) {
        return;
    }
    std::vector<Point3> line;
    for (size_t m = 0; m < along; ++m) {
        line.clear();
        for (size_t n = 0; n < across; ++n) line.push_back(vertices[m * across + n].point);
        EmitLines(entity, line, flags & kClosedAcross);
    }
    for (size_t n = 0; n < across; ++n) {
        line.clear();
        for (size_t m = 0; m < along; ++m) line.push_back(vertices[m * across + n].point);
        EmitLines(entity, line, flags & kClosed);
    }
}

// A face names up to four points by number; a negative number hides the edge that begins there.
void EmitPolyface(const Entity& entity, const std::vector<Vertex>& vertices) {
    std::vector<Point3> points;
    for (const Vertex& vertex : vertices) {
        if (vertex.flags & kFacePoint) points.push_back(vertex.point);
    }
    Path& path = entity.shape.path;
    for (const Vertex& face : vertices) {
        if (!(face.flags & kFace) || face.flags & kFacePoint) continue;
        const auto corners = std::count_if(face.faces, face.faces + 4, [](int n) { return n; });
        for (int i = 0; i < corners; ++i) {
            const auto from = static_cast<size_t>(std::abs(face.faces[i])) - 1;
            const auto to = static_cast<size_t>(std::abs(face.faces[(i + 1) % corners])) - 1;
            if (face.faces[i] < 0 || from >= points.size() || to >= points.size()) continue;
            path.MoveTo(points[from]);
            path.LineTo(points[to]);
        }
    }
    entity.EmitPath(ShapeKind::Stroke);
}

Vertex VertexOf(const Tags& tags, const Tags& polyline) {
    Vertex vertex;
    vertex.point = tags.Point(10);
    vertex.bulge = tags.Real(42);
    vertex.startWidth = tags.Real(40, polyline.Real(40));
    vertex.endWidth = tags.Real(41, polyline.Real(41));
    vertex.flags = tags.Int(70);
    for (int i = 0; i < 4; ++i) vertex.faces[i] = tags.Int(71 + i);
    return vertex;
}

// The records behind the polyline; a missing SEQEND ends them too.
std::vector<Vertex> ReadVertices(const Entity& entity) {
    const dxf::Store& store = entity.drawing.store;
    std::vector<Vertex> vertices;
    Tags tags;
    for (auto i = store.Next(entity.record); i != dxf::kNoRecord; i = store.Next(i)) {
        if (store.At(i).type != dxf::RecordType::Vertex) break;
        if (store.At(i).flags & dxf::kErased) continue;
        tags.Read(store, i);
        if (!(tags.Int(70) & kFrameOfSpline)) vertices.push_back(VertexOf(tags, entity.tags));
    }
    return vertices;
}

}  // namespace

void ReadLightPolyline(const Entity& entity) {
    const Tags& tags = entity.tags;
    const double elevation = tags.Real(38), width = std::abs(tags.Real(43));
    std::vector<Vertex> vertices;
    vertices.reserve(tags.All().size() / 2);
    for (const dxf::Group& group : tags.All()) {
        if (group.code == 10) {
            vertices.push_back({{RealOf(group), 0, elevation}, 0, width, width});
        }
        if (vertices.empty()) continue;
        Vertex& vertex = vertices.back();
        if (group.code == 20) vertex.point.y = RealOf(group);
        if (group.code == 40 && width == 0) vertex.startWidth = std::abs(RealOf(group));
        if (group.code == 41 && width == 0) vertex.endWidth = std::abs(RealOf(group));
        if (group.code == 42) vertex.bulge = RealOf(group);
    }
    EmitFlat(entity, vertices, tags.Int(70) & kClosed, ExtrusionMatrix(tags.Extrusion()));
}

void ReadPolyline(const Entity& entity) {
    const int flags = entity.tags.Int(70);
    std::vector<Vertex> vertices = ReadVertices(entity);
    if (flags & kPolyface) {
        EmitPolyface(entity, vertices);
    } else if (flags & kMesh) {
        EmitMesh(entity, vertices, flags);
    } else if (flags & k3d) {
        std::vector<Point3> points;
        points.reserve(vertices.size());
        for (const Vertex& vertex : vertices) points.push_back(vertex.point);
        EmitLines(entity, points, flags & kClosed);
    } else {
        const double elevation = entity.tags.Real(30);
        for (Vertex& vertex : vertices) vertex.point.z = elevation;
        EmitFlat(entity, vertices, flags & kClosed, ExtrusionMatrix(entity.tags.Extrusion()));
    }
}

}  // namespace painter
