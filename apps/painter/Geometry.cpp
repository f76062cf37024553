// Points in space and affine maps of them.
#include "apps/painter/Geometry.h"

namespace painter {

double Length(const Point3& vector) { return std::hypot(vector.x, vector.y, vector.z); }

Point3 Cross(const Point3& a, const Point3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Point3 Normalised(const Point3& vector, const Point3& fallback) {
    const double length = Length(vector);
    return length > 1e-12 ? vector * (1.0 / length) : fallback;
}

Matrix operator*(const Matrix& outer, const Matrix& inner) {
    return {outer.Vector(inner.x), outer.Vector(inner.y), outer.Vector(inner.z),
            outer.Map(inner.origin)};
}

Matrix Translation(const Point3& by) {
    Matrix matrix;
    matrix.origin = by;
    return matrix;
}

Matrix Rotation(double radians) {
    if (radians == 0) return {};
    const double c = std::cos(radians), s = std::sin(radians);
    Matrix matrix;
    matrix.x = {c, s, 0};
    matrix.y = {-s, c, 0};
    return matrix;
}

Matrix Scaling(double x, double y, double z) {
    Matrix matrix;
    matrix.x.x = x;
    matrix.y.y = y;
    matrix.z.z = z;
    return matrix;
}

// The arbitrary axis algorithm of the DXF reference.
Matrix ExtrusionMatrix(const Point3& extrusion) {
    constexpr double kNearZ = 1.0 / 64.0;
    Matrix matrix;
    if (extrusion.x == 0 && extrusion.y == 0 && extrusion.z >= 0) return matrix;
    matrix.z = Normalised(extrusion);
    const bool nearZ = std::abs(matrix.z.x) < kNearZ && std::abs(matrix.z.y) < kNearZ;
    const Point3 axis = nearZ ? Point3{0, 1, 0} : Point3{0, 0, 1};
    matrix.x = Normalised(Cross(axis, matrix.z), {1, 0, 0});
    matrix.y = Normalised(Cross(matrix.z, matrix.x), {0, 1, 0});
    return matrix;
}

}  // namespace painter
