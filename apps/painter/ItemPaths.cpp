// Items of a display list as paths of Qt.
#include "apps/painter/ItemPaths.h"

namespace painter {

QPainterPath PathOf(const ListPart& part, const Item& item, const QTransform& map) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.reserve(static_cast<int>(item.count));
    const QPointF* point = part.points.data() + item.first;
    const QPointF* const end = point + item.count;
    for (const Verb* verb = part.verbs.data() + item.verb; point != end; ++verb) {
        switch (*verb) {
            case Verb::Move:
                path.moveTo(map.map(*point++));
                break;
            case Verb::Line:
                path.lineTo(map.map(*point++));
                break;
            case Verb::Curve:
                path.cubicTo(map.map(point[0]), map.map(point[1]), map.map(point[2]));
                point += 3;
                break;
        }
    }
    return path;
}

}  // namespace painter
