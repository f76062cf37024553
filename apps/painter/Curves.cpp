// Arcs and bulges.
#include "apps/painter/Curves.h"

#include <algorithm>

namespace painter {

void AddArc(Path& path, const Point3& centre, const Point3& major, const Point3& minor,
            double start, double sweep, bool joined) {
    const int pieces =
        std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (M_PI / 2) - 1e-9)));
    const double step = sweep / pieces;
    const double reach = 4.0 / 3.0 * std::tan(step / 4);
    const auto at = [&](double t) { return major * std::cos(t) + minor * std::sin(t); };
    const auto slope = [&](double t) { return minor * std::cos(t) - major * std::sin(t); };
    const Point3 first = centre + at(start);
    if (joined) {
        path.LineTo(first);
    } else {
        path.MoveTo(first);
    }
    for (int i = 0; i < pieces; ++i) {
        const double from = start + step * i, to = from + step;
        path.CurveTo(centre + at(from) + slope(from) * reach, centre + at(to) - slope(to) * reach,
                     centre + at(to));
    }
}

void AddBulge(Path& path, const Point3& end, double bulge) {
    const Point3 start = path.points.back();
    const Point3 chord = end - start;
    constexpr double kFlat = 1e-9, kRound = 1e6;
    if (std::abs(bulge) < kFlat || std::abs(bulge) > kRound || Length(chord) == 0) {
        path.LineTo(end);
        return;
    }
    // The centre lies on the middle of the chord, to its left for a bulge between 0 and 1.
    const double aside = (1 - bulge * bulge) / (4 * bulge);
    const Point3 left{-chord.y, chord.x, 0};
    const Point3 centre = Between(start, end, 0.5) + left * aside;
    const Point3 arm = start - centre;
    AddArc(path, centre, {arm.x, arm.y, 0}, {-arm.y, arm.x, 0}, 0, 4 * std::atan(bulge), true);
}

double SweepOf(double startDegrees, double endDegrees) {
    double sweep = std::fmod(endDegrees - startDegrees, 360.0);
    if (sweep <= 1e-9) sweep += 360.0;
    return Radians(sweep);
}

Path Flattened(const Path& path) {
    constexpr int kPieces = 16;
    Path flat;
    size_t next = 0;
    for (const Verb verb : path.verbs) {
        if (verb != Verb::Curve) {
            flat.Add(verb, path.points[next++]);
            continue;
        }
        const Point3 p0 = path.points[next - 1], p1 = path.points[next], p2 = path.points[next + 1],
                     p3 = path.points[next + 2];
        next += 3;
        for (int i = 1; i <= kPieces; ++i) {
            const double t = static_cast<double>(i) / kPieces, s = 1 - t;
            flat.LineTo(p0 * (s * s * s) + p1 * (3 * s * s * t) + p2 * (3 * s * t * t) +
                        p3 * (t * t * t));
        }
    }
    return flat;
}

void Transform(Path& path, const Matrix& matrix) {
    for (Point3& point : path.points) point = matrix.Map(point);
}

}  // namespace painter
