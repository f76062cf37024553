// OdGePoint3d and OdGeVector3d: a point and a direction in drawing units.
#pragma once

#include <cmath>

struct OdGeVector3d {
    double x = 0, y = 0, z = 0;
    static const OdGeVector3d kXAxis, kYAxis, kZAxis;

    OdGeVector3d operator+(const OdGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    OdGeVector3d operator-(const OdGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    OdGeVector3d operator*(double f) const { return {x * f, y * f, z * f}; }
    double dotProduct(const OdGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    OdGeVector3d crossProduct(const OdGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    double length() const { return std::sqrt(dotProduct(*this)); }
    OdGeVector3d normal() const;  // of length 1; a vector without length stays as it is
    friend bool operator==(const OdGeVector3d&, const OdGeVector3d&) = default;
};

struct OdGePoint3d {
    double x = 0, y = 0, z = 0;
    OdGeVector3d asVector() const { return {x, y, z}; }
    friend bool operator==(const OdGePoint3d&, const OdGePoint3d&) = default;
};

inline const OdGeVector3d OdGeVector3d::kXAxis{1, 0, 0};
inline const OdGeVector3d OdGeVector3d::kYAxis{0, 1, 0};
inline const OdGeVector3d OdGeVector3d::kZAxis{0, 0, 1};

inline OdGeVector3d OdGeVector3d::normal() const {
    const double size = length();
    return size > 0 ? *this * (1 / size) : *this;
}
