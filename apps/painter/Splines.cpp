// Splines.
#include <algorithm>

#include "apps/painter/Curves.h"

namespace painter {

namespace {

constexpr int kHighestDegree = 15;

bool MakesSense(const Spline& spline) {
    const auto count = spline.controls.size();
    const auto degree = static_cast<size_t>(spline.degree);
    return spline.degree >= 1 && spline.degree <= kHighestDegree && count > degree &&
           spline.knots.size() == count + degree + 1 &&
           std::is_sorted(spline.knots.begin(), spline.knots.end());
}

double WeightAt(const Spline& spline, size_t index) {
    return index < spline.weights.size() && spline.weights[index] > 0 ? spline.weights[index] : 1;
}

// De Boor's algorithm in the span of knots that begins at `span`.
Point3 PointAt(const Spline& spline, size_t span, double t) {
    const auto degree = static_cast<size_t>(spline.degree);
    Point3 points[kHighestDegree + 1];
    double weights[kHighestDegree + 1];
    for (size_t j = 0; j <= degree; ++j) {
        const size_t index = span - degree + j;
        weights[j] = WeightAt(spline, index);
        points[j] = spline.controls[index] * weights[j];
    }
    for (size_t round = 1; round <= degree; ++round) {
        for (size_t j = degree; j >= round; --j) {
            const double low = spline.knots[span - degree + j];
            const double high = spline.knots[span + 1 + j - round];
            const double part = high > low ? (t - low) / (high - low) : 0;
            points[j] = Between(points[j - 1], points[j], part);
            weights[j] += (weights[j - 1] - weights[j]) * (1 - part);
        }
    }
    return weights[degree] != 0 ? points[degree] * (1 / weights[degree]) : points[degree];
}

// The cubic curve through the points at 0, 1/3, 2/3 and 1 of a stretch.
void AddCubic(Path& path, const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3) {
    path.CurveTo((p0 * -5 + p1 * 18 - p2 * 9 + p3 * 2) * (1.0 / 6),
                 (p0 * 2 - p1 * 9 + p2 * 18 - p3 * 5) * (1.0 / 6), p3);
}

void AddSpan(Path& path, const Spline& spline, size_t span) {
    const double begin = spline.knots[span], end = spline.knots[span + 1];
    const bool exact = spline.degree <= 3 && spline.weights.empty();
    const int pieces = exact ? 1 : 4;
    for (int i = 0; i < pieces; ++i) {
        const auto at = [&](double part) {
            return PointAt(spline, span, begin + (end - begin) * (i + part) / pieces);
        };
        AddCubic(path, at(0), at(1.0 / 3), at(2.0 / 3), at(1));
    }
}

// A smooth line through the points: the slope at each is that between its neighbours.
void AddThrough(Path& path, const std::vector<Point3>& points, bool closed) {
    const size_t count = points.size();
    const auto slope = [&](size_t i) {
        const size_t before = i > 0 ? i - 1 : closed ? count - 1 : 0;
        const size_t behind = i + 1 < count ? i + 1 : closed ? 0 : count - 1;
        return (points[behind] - points[before]) * (1.0 / 6);
    };
    const size_t stretches = closed ? count : count - 1;
    for (size_t i = 0; i < stretches; ++i) {
        const size_t next = (i + 1) % count;
        path.CurveTo(points[i] + slope(i), points[next] - slope(next), points[next]);
    }
}

void Begin(Path& path, const Point3& point, bool joined) {
    if (joined) {
        path.LineTo(point);
    } else {
        path.MoveTo(point);
    }
}

}  // namespace

void AddSpline(Path& path, const Spline& spline, bool joined) {
    if (MakesSense(spline)) {
        const auto degree = static_cast<size_t>(spline.degree);
        Begin(path, PointAt(spline, degree, spline.knots[degree]), joined);
        for (size_t span = degree; span < spline.controls.size(); ++span) {
            if (spline.knots[span + 1] > spline.knots[span]) AddSpan(path, spline, span);
        }
        return;
    }
    const std::vector<Point3>& points = spline.controls.empty() ? spline.fits : spline.controls;
    if (points.empty()) return;
    Begin(path, points[0], joined);
    if (spline.controls.empty() && points.size() > 2) {
        AddThrough(path, points, spline.closed);
    } else {
        for (size_t i = 1; i < points.size(); ++i) path.LineTo(points[i]);
    }
}

}  // namespace painter
