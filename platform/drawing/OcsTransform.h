// OcsTransform: what a transformation of the world does to the object coordinates of an entity.
#pragma once

#include "platform/drawing/GeMatrix3d.h"

// The new normal is that of the transformed x and y axes: of a mirrored entity it turns round, and
// the entity keeps the sense of its arcs and of its text.
class OcsTransform {
  public:
    OcsTransform(const OdGeVector3d& normal, const OdGeMatrix3d& matrix);

    const OdGeVector3d& normal() const { return newNormal; }
    OdGePoint3d point(const OdGePoint3d& point) const;
    OdGeVector3d vector(const OdGeVector3d& direction) const;
    double angle(double degrees) const;   // of a direction in the plane
    double length(double degrees) const;  // of a unit vector with that angle
    double thickness(double thickness) const;

  private:
    OdGeMatrix3d matrix, oldPlane, newPlane;
    OdGeVector3d newNormal;
};

// The coordinates of the point in a plane's system.
OdGeVector3d InPlane(const OdGeMatrix3d& plane, const OdGeVector3d& world);

inline constexpr double kRadians = 3.14159265358979323846 / 180;
double DegreesOf(const OdGeVector3d& direction);  // in the plane, from 0 up to 360
