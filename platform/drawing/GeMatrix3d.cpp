// Transformations of the world.
#include "platform/drawing/GeMatrix3d.h"

#include <algorithm>

namespace {

// Products of two axes are compared with their lengths, so that huge and tiny drawings are judged
// alike.
constexpr double kTolerance = 1e-9;

}  // namespace

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& offset) {
    OdGeMatrix3d matrix;
    matrix.origin = offset;
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::scaling(double x, double y, double z) {
    OdGeMatrix3d matrix;
    matrix.xAxis.x = x;
    matrix.yAxis.y = y;
    matrix.zAxis.z = z;
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::rotation(double radians) {
    OdGeMatrix3d matrix;
    matrix.xAxis = {std::cos(radians), std::sin(radians), 0};
    matrix.yAxis = {-std::sin(radians), std::cos(radians), 0};
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal) {
    constexpr double kNearZ = 1.0 / 64;
    OdGeMatrix3d matrix;
    if (normal == OdGeVector3d::kZAxis || normal.length() == 0) return matrix;
    matrix.zAxis = normal.normal();
    const bool nearZ = std::abs(matrix.zAxis.x) < kNearZ && std::abs(matrix.zAxis.y) < kNearZ;
    const OdGeVector3d& helper = nearZ ? OdGeVector3d::kYAxis : OdGeVector3d::kZAxis;
    matrix.xAxis = helper.crossProduct(matrix.zAxis).normal();
    matrix.yAxis = matrix.zAxis.crossProduct(matrix.xAxis).normal();
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::operator*(const OdGeMatrix3d& first) const {
    return {*this * first.xAxis, *this * first.yAxis, *this * first.zAxis,
            *this * first.origin + origin};
}

OdGeVector3d OdGeMatrix3d::operator*(const OdGeVector3d& v) const {
    return xAxis * v.x + yAxis * v.y + zAxis * v.z;
}

OdGePoint3d OdGeMatrix3d::operator*(const OdGePoint3d& point) const {
    const OdGeVector3d moved = *this * point.asVector() + origin;
    return {moved.x, moved.y, moved.z};
}

bool OdGeMatrix3d::isTranslation() const {
    return xAxis == OdGeVector3d::kXAxis && yAxis == OdGeVector3d::kYAxis &&
           zAxis == OdGeVector3d::kZAxis;
}

bool OdGeMatrix3d::isUniScaledOrtho(double* scale) const {
    const double size = xAxis.length();
    const double allowed = kTolerance * size * size;
    const auto right = [&](const OdGeVector3d& a, const OdGeVector3d& b) {
        return std::abs(a.dotProduct(b)) <= allowed;
    };
    const auto same = [&](const OdGeVector3d& a) {
        return std::abs(a.length() - size) <= kTolerance * size;
    };
    if (scale) *scale = size;
    return size > 0 && right(xAxis, yAxis) && right(yAxis, zAxis) && right(zAxis, xAxis) &&
           same(yAxis) && same(zAxis);
}
