// Arcs, bulges and splines as paths of cubic curves, which keep their form under every affine map.
#pragma once

#include <span>

#include "apps/painter/Shape.h"

namespace painter {

// Along centre + major cos t + minor sin t, from t = start over `sweep` radians either way. Joins
// the path's last point if `joined`, else begins a stretch of its own.
void AddArc(Path& path, const Point3& centre, const Point3& major, const Point3& minor,
            double start, double sweep, bool joined = false);

// From the path's last point; a bulge of 0 is a straight line. In the plane of x and y.
void AddBulge(Path& path, const Point3& end, double bulge);

// Counter-clockwise from start to end in degrees: above 0, up to a full turn.
double SweepOf(double startDegrees, double endDegrees);

struct Spline {
    int degree = 3;
    std::vector<double> knots;
    std::vector<Point3> controls;
    std::vector<double> weights;  // empty, or one for each control point
    std::vector<Point3> fits;     // used when there are no control points
    bool closed = false;
};
// Exact for splines of up to third degree without weights. One that makes no sense gives the
// polygon of its points.
void AddSpline(Path& path, const Spline& spline, bool joined = false);

// The path with its curves as short straight lines, for what needs polygons.
Path Flattened(const Path& path);

void Transform(Path& path, const Matrix& matrix);

}  // namespace painter
