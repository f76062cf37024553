// A transform of the plane without perspective.
#pragma once

#include <QTransform>
#include <cmath>

namespace painter {

// What QTransform does, without room for a perspective and without its questions of what kind of
// map it is: a picture maps millions of points.
struct AffineMap {
    double xx = 1, xy = 0, yx = 0, yy = 1, dx = 0, dy = 0;

    AffineMap() = default;
    AffineMap(double xx, double xy, double yx, double yy, double dx, double dy)
        : xx(xx), xy(xy), yx(yx), yy(yy), dx(dx), dy(dy) {}
    explicit AffineMap(const QTransform& map)
        : xx(map.m11()), xy(map.m12()), yx(map.m21()), yy(map.m22()), dx(map.dx()), dy(map.dy()) {}

    QPointF Map(QPointF p) const { return Vector(p) + QPointF(dx, dy); }
    QPointF Vector(QPointF v) const { return {xx * v.x() + yx * v.y(), xy * v.x() + yy * v.y()}; }
    QTransform Transform() const { return {xx, xy, yx, yy, dx, dy}; }
    double Scale() const { return std::sqrt(std::abs(xx * yy - xy * yx)); }
};

}  // namespace painter
