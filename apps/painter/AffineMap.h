// A transform of the plane without perspective.
#pragma once

#include <QTransform>
#include <cmath>

namespace painter {

// What QTransform does, without its questions of what kind of map it is: a picture maps millions of
// points.
struct AffineMap {
    double xx, xy, yx, yy, dx, dy;

    explicit AffineMap(const QTransform& map)
        : xx(map.m11()), xy(map.m12()), yx(map.m21()), yy(map.m22()), dx(map.dx()), dy(map.dy()) {}

    QPointF Map(QPointF p) const { return Vector(p) + QPointF(dx, dy); }
    QPointF Vector(QPointF v) const { return {xx * v.x() + yx * v.y(), xy * v.x() + yy * v.y()}; }
    double Scale() const { return std::sqrt(std::abs(xx * yy - xy * yx)); }
};

}  // namespace painter
