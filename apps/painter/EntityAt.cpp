// Which entity is at a point.
#include <QPainterPath>
#include <algorithm>

#include "apps/painter/DisplayList.h"
#include "apps/painter/ItemPaths.h"

namespace painter {

namespace {

double DistanceToLine(QPointF point, QPointF a, QPointF b) {
    const QPointF along = b - a, from = point - a;
    const double square = QPointF::dotProduct(along, along);
    const double part =
        square > 0 ? std::clamp(QPointF::dotProduct(from, along) / square, 0.0, 1.0) : 0;
    const QPointF apart = from - along * part;
    return std::hypot(apart.x(), apart.y());
}

bool IsNearLines(const QPointF* points, size_t count, QPointF point, double tolerance) {
    for (size_t i = 0; i + 1 < count; ++i) {
        if (DistanceToLine(point, points[i], points[i + 1]) <= tolerance) return true;
    }
    return false;
}

bool IsNearPath(const QPainterPath& path, QPointF point, double tolerance) {
    const auto polygons = path.toSubpathPolygons();
    return std::any_of(polygons.begin(), polygons.end(), [&](const QPolygonF& polygon) {
        return IsNearLines(polygon.constData(), static_cast<size_t>(polygon.size()), point,
                           tolerance);
    });
}

// Within the letters' box, from a descender to the capitals' top.
bool IsInText(const DisplayList& list, const TextItem& text, QPointF point, double tolerance) {
    const Font& font = list.fonts->At(text.font);
    bool regular = false;
    const QTransform back = text.placement.Transform().inverted(&regular);
    if (!regular) return false;
    const QPointF place = back.map(point);
    const double em = text.placement.Scale();
    const double slack = em > 0 ? tolerance / em : 0;
    return place.x() >= -slack && place.x() <= text.advance + slack &&
           place.y() >= -font.Descent() - slack && place.y() <= font.CapHeight() + slack;
}

bool IsAt(const DisplayList& list, const ListPart& part, const Item& item, QPointF point,
          double tolerance) {
    switch (item.kind) {
        case ItemKind::Text:
            return IsInText(list, part.texts[item.first], point, tolerance);
        case ItemKind::Fill: {
            const QPainterPath path = PathOf(part, item, QTransform());
            return path.contains(point) || IsNearPath(path, point, tolerance);
        }
        case ItemKind::Dot:
            return DistanceToLine(point, part.points[item.first], part.points[item.first]) <=
                   tolerance;
        case ItemKind::Line:
        case ItemKind::Polyline:
            return IsNearLines(&part.points[item.first], item.count, point, tolerance);
        default:
            return IsNearPath(PathOf(part, item, QTransform()), point,
                              std::max(tolerance, double{item.width} / 2));
    }
}

}  // namespace

uint64_t EntityAt(const DisplayList& list, QPointF point, double tolerance) {
    const Bounds window{point.x() - tolerance, point.y() - tolerance, point.x() + tolerance,
                        point.y() + tolerance};
    uint64_t handle = 0;
    ForEachWithin(list, window, [&](const ListPart& part, const Item& item) {
        if (IsAt(list, part, item, point, tolerance)) handle = item.handle;
    });
    return handle;
}

}  // namespace painter
