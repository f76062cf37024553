// Transformation of polylines and hatches.
#include "platform/drawing/GroupList.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/OcsTransform.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/Transform.h"

using dxf::RecordIndex;
using dxf::RecordType;

namespace {

constexpr int64_t kSpacePolyline = 8 | 16 | 64;  // 3D polyline, mesh, polyface
constexpr int64_t kFaceRecord = 128, kFaceCorner = 64;

int64_t flagsOf(const GroupList& groups) { return static_cast<int64_t>(groups.numberOf(70, 0)); }

void transformPlaneVertex(GroupList& groups, const OcsTransform& ocs) {
    for (size_t i = 0; i < groups.ownEnd(); ++i) {
        const int code = groups.code(i);
        if (code == 10) groups.setPoint(i, ocs.point(groups.point(i)));
        if (code == 40 || code == 41) groups.setNumber(i, groups.number(i) * ocs.length(0));
        if (code == 50) groups.setNumber(i, ocs.angle(groups.number(i)));
    }
}

// The point of the polyline itself gives nothing but the elevation.
void transformPlaneHead(GroupList& groups, const OcsTransform& ocs) {
    const size_t point = groups.find(10);
    if (point != GroupList::npos) {
        const OdGePoint3d old = groups.point(point);
        groups.setPoint(point, {old.x, old.y, ocs.point({0, 0, old.z}).z});
    }
    for (const int width : {40, 41}) {
        const size_t i = groups.find(width);
        if (i != GroupList::npos) groups.setNumber(i, groups.number(i) * ocs.length(0));
    }
    TransformExtrusion(groups, ocs);
}

void transformSpaceVertex(GroupList& groups, const OdGeMatrix3d& matrix) {
    const int64_t flags = flagsOf(groups);
    if ((flags & kFaceRecord) && !(flags & kFaceCorner)) return;  // names corners, has no place
    const size_t point = groups.find(10);
    if (point != GroupList::npos) groups.setPoint(point, matrix * groups.point(point));
}

// The walk over the groups of a hatch, whose codes mean different things in its parts.
class HatchWalk {
  public:
    HatchWalk(GroupList& groups, const OdGeMatrix3d& matrix)
        : groups(groups), ocs(NormalOf(groups), matrix), scale(ocs.length(0)) {}

    void run() {
        elevation = groups.find(10);
        if (elevation != GroupList::npos) {
            height = groups.point(elevation).z;
            const OdGePoint3d old = groups.point(elevation);
            groups.setPoint(elevation, {old.x, old.y, ocs.point({0, 0, height}).z});
        }
        for (size_t i = 0; i < groups.ownEnd(); ++i) {
            if (i != elevation) take(i);
        }
        SetNormal(groups, ocs.normal());
    }

  private:
    enum class Part { Head, Polyline, Edges, Pattern };

    void take(size_t i) {
        switch (groups.code(i)) {
            case 92:
                part = (groups.group(i).AsInt() & 2) ? Part::Polyline : Part::Edges;
                edge = 0;
                return;
            case 72:
                if (part == Part::Edges) edge = groups.group(i).AsInt();
                return;
            case 75:
                part = Part::Pattern;  // behind all boundaries
                return;
            default:
                break;
        }
        if (part == Part::Polyline && groups.code(i) == 10) movePair(i);
        if (part == Part::Edges) takeEdge(i);
        if (part == Part::Pattern) takePattern(i);
    }

    // x and y stand one behind the other.
    void movePair(size_t i) {
        if (i + 1 >= groups.ownEnd()) return;
        const OdGePoint3d moved = ocs.point({groups.number(i), groups.number(i + 1), height});
        groups.setNumber(i, moved.x);
        groups.setNumber(i + 1, moved.y);
    }
    void turnVector(size_t i) {
        if (i + 1 >= groups.ownEnd()) return;
        const OdGeVector3d turned = ocs.vector({groups.number(i), groups.number(i + 1), 0});
        groups.setNumber(i, turned.x);
        groups.setNumber(i + 1, turned.y);
    }
    // A clockwise arc counts its angles the other way round.
    double turned(double degrees, bool counterClockwise) const {
        return counterClockwise ? ocs.angle(degrees) : 360 - ocs.angle(360 - degrees);
    }
    bool isCounterClockwise(size_t i) const {
        while (i < groups.ownEnd() && groups.code(i) != 73) ++i;
        return i == groups.ownEnd() || groups.group(i).AsInt() != 0;
    }

    void takeEdge(size_t i) {
        constexpr int64_t kArc = 2, kEllipse = 3, kSpline = 4;
        const int code = groups.code(i);
        if (code == 10) movePair(i);
        if (code == 11) edge == kEllipse ? turnVector(i) : movePair(i);
        if ((code == 12 || code == 13) && edge == kSpline) turnVector(i);
        if (edge == kArc && code == 40) groups.setNumber(i, groups.number(i) * scale);
        if (edge == kArc && code == 50) takeArcAngles(i);
    }

    // Both together: a full circle stays one.
    void takeArcAngles(size_t i) {
        if (i + 1 >= groups.ownEnd() || groups.code(i + 1) != 51) return;
        const double begin = groups.number(i), end = groups.number(i + 1);
        const double newBegin = turned(begin, isCounterClockwise(i));
        if (newBegin == begin) return;
        groups.setNumber(i, newBegin);
        groups.setNumber(i + 1, newBegin + (end - begin));
    }

    void takePattern(size_t i) {
        const int code = groups.code(i);
        if (code == 10) movePair(i);  // seeds
        if (code == 52 || code == 53) groups.setNumber(i, ocs.angle(groups.number(i)));
        if (code == 41 || code == 47 || code == 49) {
            groups.setNumber(i, groups.number(i) * scale);
        }
        if (code == 43) movePair(i);  // the base of a line of the pattern: x in 43, y in 44
        if (code == 45) turnVector(i);
    }

    GroupList& groups;
    OcsTransform ocs;
    double scale, height = 0;
    size_t elevation = GroupList::npos;
    Part part = Part::Head;
    int64_t edge = 0;
};

}  // namespace

void TransformVertices(dxf::Store& store, RecordIndex polyline, const OdGeMatrix3d& matrix) {
    GroupList head(store, polyline);
    const bool space = flagsOf(head) & kSpacePolyline;
    const OcsTransform ocs(NormalOf(head), matrix);
    if (!space) transformPlaneHead(head, ocs);
    head.apply();
    for (RecordIndex i = store.Next(polyline);
         i != dxf::kNoRecord && store.At(i).type == RecordType::Vertex; i = store.Next(i)) {
        GroupList vertex(store, i);
        space ? transformSpaceVertex(vertex, matrix) : transformPlaneVertex(vertex, ocs);
        vertex.apply();
    }
}

void TransformLwPolyline(GroupList& groups, const OdGeMatrix3d& matrix) {
    if (groups.find(42) != GroupList::npos && !matrix.isUniScaledOrtho()) {
        throw OdError(eCannotScaleNonUniformly,
                      u"a polyline with arcs cannot be scaled in this way and stay of its type");
    }
    const OcsTransform ocs(NormalOf(groups), matrix);
    const double elevation = groups.numberOf(38, 0);
    double newElevation = elevation;
    for (size_t i = 0; i < groups.ownEnd(); ++i) {
        const int code = groups.code(i);
        if (code == 10 && i + 1 < groups.ownEnd()) {
            const OdGePoint3d moved =
                ocs.point({groups.number(i), groups.number(i + 1), elevation});
            groups.setNumber(i, moved.x);
            groups.setNumber(i + 1, moved.y);
            newElevation = moved.z;
        }
        if (code == 40 || code == 41 || code == 43) {
            groups.setNumber(i, groups.number(i) * ocs.length(0));
        }
    }
    if (const size_t i = groups.find(38); i != GroupList::npos) {
        groups.setNumber(i, newElevation);
    } else if (const size_t point = groups.find(10); newElevation != 0 && point != groups.npos) {
        groups.insertBefore(point, groups.newWriter().Double(38, newElevation).Take());
    }
    TransformExtrusion(groups, ocs);
}

void TransformHatch(GroupList& groups, const OdGeMatrix3d& matrix) {
    HatchWalk(groups, matrix).run();
}
