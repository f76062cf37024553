// OdGeMatrix3d: an affine transformation of the world.
#pragma once

#include "platform/drawing/GePoint3d.h"

// Three axes and an origin: x goes to the x axis and so on.
struct OdGeMatrix3d {
    OdGeVector3d xAxis{1, 0, 0}, yAxis{0, 1, 0}, zAxis{0, 0, 1};
    OdGeVector3d origin;

    static OdGeMatrix3d translation(const OdGeVector3d& offset);
    static OdGeMatrix3d scaling(double x, double y, double z);
    static OdGeMatrix3d rotation(double radians);  // about the z axis
    // The object coordinates of entities with that normal, by the arbitrary axis algorithm.
    static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);

    OdGeMatrix3d operator*(const OdGeMatrix3d& first) const;  // first, then this one
    OdGePoint3d operator*(const OdGePoint3d& point) const;
    OdGeVector3d operator*(const OdGeVector3d& direction) const;  // without the origin

    bool isTranslation() const;  // the axes are those of the world
    // The axes stand at right angles and have one length, given in scale; mirroring is allowed.
    bool isUniScaledOrtho(double* scale = nullptr) const;
    friend bool operator==(const OdGeMatrix3d&, const OdGeMatrix3d&) = default;
};
