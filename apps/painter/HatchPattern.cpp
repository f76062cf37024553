// Filling areas with the lines of a pattern.
#include "apps/painter/HatchPattern.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "apps/painter/Curves.h"

namespace painter {

namespace {

constexpr double kMostLines = 5000;
constexpr size_t kMostPieces = 50000;

struct Edge {
    Point3 from, to;
};

// Points turned so that the lines of a family lie along x, the first one on y = 0.
struct Turned {
    explicit Turned(const PatternLine& line) : base(line.base) {
        const double angle = Radians(line.angle);
        along = {std::cos(angle), std::sin(angle), 0};
        across = {-along.y, along.x, 0};
        shift = Dot(line.offset, along);
        distance = Dot(line.offset, across);
    }
    static double Dot(const Point3& a, const Point3& b) { return a.x * b.x + a.y * b.y; }
    Point3 To(const Point3& p) const { return {Dot(p - base, along), Dot(p - base, across), 0}; }
    Point3 From(double x, double y) const { return base + along * x + across * y; }

    Point3 base, along, across;
    double shift = 0, distance = 0;
};

std::vector<Edge> EdgesOf(const Path& flat, const Turned& turned) {
    std::vector<Edge> edges;
    Point3 start, last;
    const auto close = [&] {
        if (last.x != start.x || last.y != start.y) edges.push_back({last, start});
    };
    for (size_t i = 0; i < flat.points.size(); ++i) {
        const Point3 point = turned.To(flat.points[i]);
        if (flat.verbs[i] == Verb::Move) {
            if (i > 0) close();
            start = point;
        } else {
            edges.push_back({last, point});
        }
        last = point;
    }
    close();
    return edges;
}

// Where the line at that height enters and leaves the area.
void Crossings(const std::vector<Edge>& edges, double y, std::vector<double>& crossings) {
    crossings.clear();
    for (const Edge& edge : edges) {
        if ((edge.from.y <= y) == (edge.to.y <= y)) continue;
        const double part = (y - edge.from.y) / (edge.to.y - edge.from.y);
        crossings.push_back(edge.from.x + (edge.to.x - edge.from.x) * part);
    }
    std::sort(crossings.begin(), crossings.end());
}

class Family {
  public:
    Family(Path& lines, const PatternLine& line) : lines(lines), line(line), turned(line) {
        for (const double dash : line.dashes) period += std::abs(dash);
    }

    bool Fill(const Path& flat) {
        const std::vector<Edge> edges = EdgesOf(flat, turned);
        double low = std::numeric_limits<double>::max(), high = -low;
        for (const Edge& edge : edges) {
            low = std::min({low, edge.from.y, edge.to.y});
            high = std::max({high, edge.from.y, edge.to.y});
        }
        const double step = std::abs(turned.distance);
        if (!(step > 0) || !((high - low) / step < kMostLines)) return false;
        std::vector<double> crossings;
        for (double n = std::ceil(low / step); n * step <= high; ++n) {
            Crossings(edges, n * step, crossings);
            for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
                if (!AddPiece(turned.distance < 0 ? -n : n, n * step, crossings[i],
                              crossings[i + 1])) {
                    return false;
                }
            }
        }
        return true;
    }

  private:
    // The stretch of line number n, in dashes that are counted from the line's own base.
    bool AddPiece(double n, double y, double from, double to) {
        if (line.dashes.empty() || !(period > 0)) return AddLine(y, from, to);
        const double begin = n * turned.shift;
        double x = begin + std::floor((from - begin) / period) * period;
        if ((to - from) / period > static_cast<double>(kMostPieces)) return false;
        for (size_t i = 0; x < to; i = (i + 1) % line.dashes.size()) {
            const double length = std::abs(line.dashes[i]);
            const double a = std::max(x, from), b = std::min(x + length, to);
            if (line.dashes[i] >= 0 && b >= a && !AddLine(y, a, b)) return false;
            x += length;
        }
        return true;
    }

    bool AddLine(double y, double from, double to) {
        lines.MoveTo(turned.From(from, y));
        lines.LineTo(turned.From(to, y));
        return lines.points.size() <= kMostPieces;
    }

    Path& lines;
    const PatternLine& line;
    Turned turned;
    double period = 0;
};

}  // namespace

bool AddPattern(Path& lines, const Path& area, const std::vector<PatternLine>& pattern) {
    const Path flat = Flattened(area);
    Path added;
    for (const PatternLine& line : pattern) {
        if (!Family(added, line).Fill(flat)) return false;
    }
    if (added.points.empty()) return false;
    lines.points.insert(lines.points.end(), added.points.begin(), added.points.end());
    lines.verbs.insert(lines.verbs.end(), added.verbs.begin(), added.verbs.end());
    return true;
}

}  // namespace painter
