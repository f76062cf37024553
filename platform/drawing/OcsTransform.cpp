// Object coordinates before and after a transformation.
#include "platform/drawing/OcsTransform.h"

OdGeVector3d InPlane(const OdGeMatrix3d& plane, const OdGeVector3d& world) {
    return {plane.xAxis.dotProduct(world), plane.yAxis.dotProduct(world),
            plane.zAxis.dotProduct(world)};
}

double DegreesOf(const OdGeVector3d& direction) {
    const double degrees = std::atan2(direction.y, direction.x) / kRadians;
    return degrees < 0 ? degrees + 360 : degrees;
}

OcsTransform::OcsTransform(const OdGeVector3d& normal, const OdGeMatrix3d& matrix)
    : matrix(matrix), oldPlane(OdGeMatrix3d::planeToWorld(normal)), newNormal(normal) {
    if (!matrix.isTranslation()) {
        newNormal = (matrix * oldPlane.xAxis).crossProduct(matrix * oldPlane.yAxis).normal();
    }
    newPlane = OdGeMatrix3d::planeToWorld(newNormal);
}

OdGePoint3d OcsTransform::point(const OdGePoint3d& point) const {
    const OdGeVector3d moved = InPlane(newPlane, (matrix * (oldPlane * point)).asVector());
    return {moved.x, moved.y, moved.z};
}

OdGeVector3d OcsTransform::vector(const OdGeVector3d& direction) const {
    return InPlane(newPlane, matrix * (oldPlane * direction));
}

double OcsTransform::angle(double degrees) const {
    if (matrix.isTranslation()) return degrees;
    const double radians = degrees * kRadians;
    return DegreesOf(vector({std::cos(radians), std::sin(radians), 0}));
}

double OcsTransform::length(double degrees) const {
    const double radians = degrees * kRadians;
    return vector({std::cos(radians), std::sin(radians), 0}).length();
}

double OcsTransform::thickness(double thickness) const {
    return matrix.isTranslation() ? thickness : vector({0, 0, thickness}).z;
}
