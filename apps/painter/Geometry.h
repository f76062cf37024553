// Points in space and affine maps of them: how coordinates of an entity become those of its
// drawing.
#pragma once

#include <cmath>

namespace painter {

struct Point3 {
    double x = 0, y = 0, z = 0;

    friend Point3 operator+(const Point3& a, const Point3& b) {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend Point3 operator-(const Point3& a, const Point3& b) {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend Point3 operator*(const Point3& a, double factor) {
        return {a.x * factor, a.y * factor, a.z * factor};
    }
};

double Length(const Point3& vector);
Point3 Cross(const Point3& a, const Point3& b);
// Of length 1; `fallback` for a vector without a direction.
Point3 Normalised(const Point3& vector, const Point3& fallback = {0, 0, 1});
inline Point3 Between(const Point3& a, const Point3& b, double part) { return a + (b - a) * part; }

inline double Radians(double degrees) { return degrees * (M_PI / 180.0); }

// The images of the three axes, and of the origin.
struct Matrix {
    Point3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;

    Point3 Vector(const Point3& v) const { return x * v.x + y * v.y + z * v.z; }
    Point3 Map(const Point3& p) const { return Vector(p) + origin; }
};

Matrix operator*(const Matrix& outer, const Matrix& inner);  // the inner map first
Matrix Translation(const Point3& by);
Matrix Rotation(double radians);  // around z, counter-clockwise
Matrix Scaling(double x, double y, double z);

// From the coordinates of an entity with that extrusion to those of the space it stands in.
Matrix ExtrusionMatrix(const Point3& extrusion);

}  // namespace painter
