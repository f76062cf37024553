// Transformation of texts, block references and leaders with a text.
#include "platform/drawing/TextGeometry.h"

#include "platform/drawing/GroupList.h"
#include "platform/drawing/OcsTransform.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/Transform.h"

namespace {

void setOrInsert(GroupList& groups, int code, double value, double absent) {
    const size_t i = groups.find(code);
    if (i != GroupList::npos) return groups.setNumber(i, value);
    const size_t point = groups.find(10);
    if (value == absent || point == GroupList::npos) return;
    groups.insertBefore(point, groups.newWriter().Double(code, value).Take());
}

// One text of several lines between two places of a record.
void transformParagraphs(GroupList& groups, size_t from, size_t to, const OcsTransform& ocs,
                         const OdGeMatrix3d& matrix) {
    const double scale = ocs.length(90);
    bool hasDirection = false;
    for (size_t i = from; i < to; ++i) {
        const int code = groups.code(i);
        if (code == 10) groups.setPoint(i, matrix * groups.point(i));
        if (code == 11 && !matrix.isTranslation()) {
            groups.setVector(i, (matrix * groups.vector(i)).normal());
            hasDirection = true;
        }
        if (code == 40 || code == 41 || code == 42 || code == 43 || code == 46) {
            groups.setNumber(i, groups.number(i) * scale);
        }
    }
    if (matrix.isTranslation() || hasDirection) return;
    for (size_t i = from; i < to; ++i) {
        if (groups.code(i) != 50) continue;
        groups.setNumber(i, ocs.angle(groups.number(i)));
        return;
    }
    const double angle = ocs.angle(0);
    if (angle == 0) return;
    for (size_t i = from; i < to; ++i) {
        if (groups.code(i) != 10) continue;
        groups.insertBefore(i, groups.newWriter().Double(50, angle).Take());
        return;
    }
}

// What an mtext keeps of its columns from R2018 on: the direction in 10, the place in 11.
void transformColumns(GroupList& groups, const OcsTransform& ocs, const OdGeMatrix3d& matrix) {
    for (size_t i = groups.ownEnd(); i < groups.xdataBegin(); ++i) {
        const int code = groups.code(i);
        if (code == 10 && !matrix.isTranslation()) {
            groups.setVector(i, (matrix * groups.vector(i)).normal());
        }
        if (code == 11) groups.setPoint(i, matrix * groups.point(i));
        if (code >= 40 && code <= 46) groups.setNumber(i, groups.number(i) * ocs.length(90));
    }
}

}  // namespace

TextGeometry ReadTextGeometry(const GroupList& groups) {
    TextGeometry text;
    const size_t position = groups.find(10), alignment = groups.find(11);
    if (position != GroupList::npos) text.position = groups.point(position);
    text.alignment = alignment != GroupList::npos ? groups.point(alignment) : text.position;
    text.height = groups.numberOf(40, 0);
    text.rotation = groups.numberOf(50, 0);
    text.widthFactor = groups.numberOf(41, 1);
    text.oblique = groups.numberOf(51, 0);
    text.thickness = groups.numberOf(39, 0);
    text.normal = NormalOf(groups);
    return text;
}

TextGeometry TextGeometry::transformed(const OdGeMatrix3d& matrix) const {
    const OcsTransform ocs(normal, matrix);
    TextGeometry text = *this;
    text.position = ocs.point(position);
    text.alignment = ocs.point(alignment);
    text.thickness = ocs.thickness(thickness);
    text.normal = ocs.normal();
    if (matrix.isTranslation()) return text;
    text.rotation = ocs.angle(rotation);
    const double along = ocs.length(rotation);
    double across = ocs.length(rotation + 90);
    // Letters that are pressed askew lean, and are as high as their lean lets them be.
    if (!matrix.isUniScaledOrtho()) {
        text.oblique = text.rotation + 90 - ocs.angle(rotation + 90 - oblique);
        text.oblique = std::remainder(text.oblique, 360);
        across *= std::cos(text.oblique * kRadians);
    }
    if (across > 0) text.widthFactor *= along / across;
    text.height *= across;
    return text;
}

void TransformText(GroupList& groups, const OdGeMatrix3d& matrix) {
    const TextGeometry old = ReadTextGeometry(groups);
    const TextGeometry text = old.transformed(matrix);
    const OcsTransform ocs(old.normal, matrix);
    // Attributes with a text of several lines show their second point twice.
    for (size_t i = 0; i < groups.ownEnd(); ++i) {
        if (groups.code(i) == 10 || groups.code(i) == 11) {
            groups.setPoint(i, ocs.point(groups.point(i)));
        }
    }
    if (!matrix.isTranslation()) {
        setOrInsert(groups, 40, text.height, 0);
        setOrInsert(groups, 50, text.rotation, 0);
        setOrInsert(groups, 41, text.widthFactor, 1);
        setOrInsert(groups, 51, text.oblique, 0);
    }
    transformParagraphs(groups, groups.ownEnd(), groups.xdataBegin(), ocs, matrix);
    TransformExtrusion(groups, ocs);
}

void TransformMText(GroupList& groups, const OdGeMatrix3d& matrix) {
    const OcsTransform ocs(NormalOf(groups), matrix);
    transformParagraphs(groups, 0, groups.ownEnd(), ocs, matrix);
    transformColumns(groups, ocs, matrix);
    SetNormal(groups, ocs.normal());
}

OdGeMatrix3d ReferenceMatrix(const GroupList& groups) {
    const size_t point = groups.find(10);
    const OdGePoint3d position = point == GroupList::npos ? OdGePoint3d() : groups.point(point);
    return OdGeMatrix3d::planeToWorld(NormalOf(groups)) *
           OdGeMatrix3d::translation(position.asVector()) *
           OdGeMatrix3d::rotation(groups.numberOf(50, 0) * kRadians) *
           OdGeMatrix3d::scaling(groups.numberOf(41, 1), groups.numberOf(42, 1),
                                 groups.numberOf(43, 1));
}

void TransformInsert(GroupList& groups, const OdGeMatrix3d& matrix) {
    const size_t position = groups.find(10);
    if (position == GroupList::npos) return;
    if (matrix.isTranslation()) {
        const OcsTransform ocs(NormalOf(groups), matrix);
        return groups.setPoint(position, ocs.point(groups.point(position)));
    }
    OdGeMatrix3d placed = matrix * ReferenceMatrix(groups);
    const double x = placed.xAxis.length(), y = placed.yAxis.length(), z = placed.zAxis.length();
    const auto askew = [](const OdGeVector3d& a, const OdGeVector3d& b, double allowed) {
        return std::abs(a.dotProduct(b)) > 1e-9 * allowed;
    };
    if (x == 0 || y == 0 || z == 0 || askew(placed.xAxis, placed.yAxis, x * y) ||
        askew(placed.yAxis, placed.zAxis, y * z) || askew(placed.zAxis, placed.xAxis, z * x)) {
        throw OdError(eCannotScaleNonUniformly,
                      u"a block reference cannot be pressed askew and stay one");
    }
    // A mirrored reference has a negative scale along its x axis.
    const double handed = placed.xAxis.crossProduct(placed.yAxis).dotProduct(placed.zAxis);
    const double mirror = handed < 0 ? -1 : 1;
    const OdGeVector3d normal = placed.zAxis * (1 / z);
    const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
    const OdGeVector3d place = InPlane(plane, placed.origin);
    groups.setPoint(position, {place.x, place.y, place.z});
    setOrInsert(groups, 50, DegreesOf(InPlane(plane, placed.xAxis * mirror)), 0);
    const double oldX = groups.numberOf(41, 1), oldY = groups.numberOf(42, 1);
    setOrInsert(groups, 41, x * mirror, 1);
    setOrInsert(groups, 42, y, 1);
    setOrInsert(groups, 43, z, 1);
    // The distances of an array are those of the world.
    if (oldX != 0) setOrInsert(groups, 44, groups.numberOf(44, 0) * x / std::abs(oldX), 0);
    if (oldY != 0) setOrInsert(groups, 45, groups.numberOf(45, 0) * y / std::abs(oldY), 0);
    SetNormal(groups, normal);
}

namespace {

// A multi-leader: nested parts of which each has its own meaning of the codes.
enum class LeaderPart { Own, Context, Leader, Line };

struct LeaderCodes {
    LeaderPart part;
    short points[4], vectors[4], lengths[8];
};
constexpr LeaderCodes kLeaderCodes[] = {
    {LeaderPart::Own, {}, {}, {41, 42}},
    {LeaderPart::Context, {10, 12, 15, 110}, {11, 13, 14}, {40, 41, 43, 44, 140, 145}},
    {LeaderPart::Leader, {10, 12, 13}, {11}, {40}},
    {LeaderPart::Line, {10, 11, 12}, {}, {}},
};

bool holds(const auto& codes, int code) {
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

void TransformMultiLeader(GroupList& groups, const OdGeMatrix3d& matrix) {
    const double scale = ScaleOf(matrix);
    LeaderPart part = LeaderPart::Own;
    for (size_t i = 0; i < groups.ownEnd(); ++i) {
        const int code = groups.code(i);
        switch (code) {
            case 300:
                if (groups.group(i).value.starts_with("CONTEXT_DATA{")) part = LeaderPart::Context;
                break;
            case 302:
                if (groups.group(i).value.starts_with("LEADER{")) part = LeaderPart::Leader;
                break;
            case 304:
                if (groups.group(i).value.starts_with("LEADER_LINE{")) part = LeaderPart::Line;
                break;
            case 305:
                part = LeaderPart::Leader;
                break;
            case 303:
                part = LeaderPart::Context;
                break;
            case 301:
                part = LeaderPart::Own;
                break;
            default:
                break;
        }
        const LeaderCodes& codes = kLeaderCodes[static_cast<int>(part)];
        if (holds(codes.points, code)) groups.setPoint(i, matrix * groups.point(i));
        if (holds(codes.vectors, code) && !matrix.isTranslation()) {
            groups.setVector(i, (matrix * groups.vector(i)).normal());
        }
        if (holds(codes.lengths, code)) groups.setNumber(i, groups.number(i) * scale);
    }
}
