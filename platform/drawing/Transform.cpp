// Transformation of entities: which groups of which type are points, directions, lengths, angles.
#include "platform/drawing/Transform.h"

#include <algorithm>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DimensionPicture.h"
#include "platform/drawing/GroupList.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/OcsTransform.h"

using dxf::RecordIndex;
using dxf::RecordType;

namespace {

// The transformations that a type bears without becoming another type.
enum class Bears { Any, UniformScale, Rigid, Translation };

struct Codes {
    short codes[6];
    bool has(int code) const {
        return code != 0 && std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
    }
};

struct Rule {
    std::string_view type;
    Bears bears;
    Codes points;                     // of the world
    Codes vectors;                    // of the world, with a length that counts
    Codes directions;                 // of the world, of length 1
    Codes planePoints;                // in object coordinates
    Codes lengths, angles;            // angles in degrees, in object coordinates
    TransformRecord whole = nullptr;  // in place of all that
};

constexpr Rule kRules[] = {
    {"3DFACE", Bears::Any, {10, 11, 12, 13}, {}, {}, {}, {}, {}},
    {"ACAD_TABLE", Bears::Rigid, {10}, {}, {11}, {}, {}, {}},
    {"ARC", Bears::UniformScale, {}, {}, {}, {10}, {40}, {50, 51}},
    {"ARC_DIMENSION", Bears::UniformScale, {10, 13, 14, 15, 16, 17}, {}, {}, {11, 12}, {}, {53}},
    {"ATTDEF", Bears::Any, {}, {}, {}, {}, {}, {}, TransformText},
    {"ATTRIB", Bears::Any, {}, {}, {}, {}, {}, {}, TransformText},
    {"CIRCLE", Bears::UniformScale, {}, {}, {}, {10}, {40}, {}},
    {"DGNUNDERLAY", Bears::UniformScale, {}, {}, {}, {10}, {41, 42, 43}, {50}},
    {"DIMENSION", Bears::UniformScale, {10, 13, 14, 15}, {}, {}, {11, 12, 16}, {40}, {50, 51, 53}},
    {"DWFUNDERLAY", Bears::UniformScale, {}, {}, {}, {10}, {41, 42, 43}, {50}},
    {"ELLIPSE", Bears::UniformScale, {10}, {11}, {}, {}, {}, {}},
    {"HATCH", Bears::UniformScale, {}, {}, {}, {}, {}, {}, TransformHatch},
    {"HELIX", Bears::Rigid, {10, 11}, {}, {12, 13}, {}, {}, {}},
    {"IMAGE", Bears::Any, {10}, {11, 12}, {}, {}, {}, {}},
    {"INSERT", Bears::Any, {}, {}, {}, {}, {}, {}, TransformInsert},
    {"LARGE_RADIAL_DIMENSION", Bears::UniformScale, {10, 13, 14, 15}, {}, {}, {11, 12}, {40}, {53}},
    {"LEADER", Bears::UniformScale, {10}, {212, 213}, {211}, {}, {40, 41}, {}},
    {"LINE", Bears::Any, {10, 11}, {}, {}, {}, {}, {}},
    {"LWPOLYLINE", Bears::Any, {}, {}, {}, {}, {}, {}, TransformLwPolyline},
    {"MESH", Bears::Any, {10}, {}, {}, {}, {}, {}},
    {"MLINE", Bears::UniformScale, {10, 11}, {}, {12, 13}, {}, {40, 41, 42}, {}},
    {"MTEXT", Bears::Any, {}, {}, {}, {}, {}, {}, TransformMText},
    {"MULTILEADER", Bears::UniformScale, {}, {}, {}, {}, {}, {}, TransformMultiLeader},
    {"OLE2FRAME", Bears::Translation, {10, 11}, {}, {}, {}, {}, {}},
    {"PDFUNDERLAY", Bears::UniformScale, {}, {}, {}, {10}, {41, 42, 43}, {50}},
    {"POINT", Bears::Any, {10}, {}, {}, {}, {}, {50}},
    {"POLYLINE", Bears::UniformScale, {}, {}, {}, {}, {}, {}},  // TransformVertices
    {"RAY", Bears::Any, {10}, {}, {11}, {}, {}, {}},
    {"SHAPE", Bears::UniformScale, {10}, {}, {}, {}, {40}, {50}},
    {"SOLID", Bears::Any, {}, {}, {}, {10, 11, 12, 13}, {}, {}},
    {"SPLINE", Bears::Any, {10, 11}, {}, {12, 13}, {}, {}, {}},
    {"TEXT", Bears::Any, {}, {}, {}, {}, {}, {}, TransformText},
    {"TOLERANCE", Bears::Rigid, {10}, {}, {11}, {}, {}, {}},
    {"TRACE", Bears::Any, {}, {}, {}, {10, 11, 12, 13}, {}, {}},
    {"WIPEOUT", Bears::Any, {10}, {11, 12}, {}, {}, {}, {}},
    {"XLINE", Bears::Any, {10}, {}, {11}, {}, {}, {}},
};

const Rule* ruleOf(const dxf::Store& store, RecordIndex index) {
    const std::string_view type = store.TypeName(index);
    for (const Rule& rule : kRules) {
        if (rule.type == type) return &rule;
    }
    return nullptr;
}

bool bears(const Rule& rule, const OdGeMatrix3d& matrix) {
    double scale = 1;
    switch (rule.bears) {
        case Bears::Any:
            return true;
        case Bears::UniformScale:
            return matrix.isUniScaledOrtho();
        case Bears::Rigid:
            return matrix.isUniScaledOrtho(&scale) && std::abs(scale - 1) < 1e-9;
        case Bears::Translation:
            return matrix.isTranslation();
    }
    return false;
}

void check(const dxf::Store& store, RecordIndex index, const Rule* rule,
           const OdGeMatrix3d& matrix) {
    const OdString where = OdString(u"object ") + OdDbHandle(store.At(index).handle).ascii() +
                           u" (" + groups::Decode(store, store.TypeName(index)) + u")";
    if (!rule) {
        throw OdError(eNotApplicable,
                      where +
                          u" cannot be moved: its geometry is closed; take it out of the "
                          u"block, or set the base point of its drawing to 0,0,0");
    }
    if (!bears(*rule, matrix)) {
        throw OdError(eCannotScaleNonUniformly,
                      where + u" cannot be scaled in this way and stay of its type");
    }
}

void applyRule(const Rule& rule, GroupList& groups, const OdGeMatrix3d& matrix) {
    const OcsTransform ocs(NormalOf(groups), matrix);
    const double scale = ocs.length(0);
    for (size_t i = 0; i < groups.ownEnd(); ++i) {
        const int code = groups.code(i);
        if (rule.points.has(code)) groups.setPoint(i, matrix * groups.point(i));
        if (rule.planePoints.has(code)) groups.setPoint(i, ocs.point(groups.point(i)));
        if (rule.vectors.has(code)) groups.setVector(i, matrix * groups.vector(i));
        if (rule.directions.has(code) && !matrix.isTranslation()) {
            groups.setVector(i, (matrix * groups.vector(i)).normal());
        }
        if (rule.lengths.has(code)) groups.setNumber(i, groups.number(i) * scale);
        if (rule.angles.has(code)) groups.setNumber(i, ocs.angle(groups.number(i)));
    }
    // The normal of an entity that lies in no plane is but the direction of its thickness.
    const bool inPlane = rule.planePoints.codes[0] || rule.vectors.codes[0];
    const auto has = [&](int code) { return groups.find(code) != GroupList::npos; };
    if (inPlane || has(39) || has(210)) TransformExtrusion(groups, ocs);
}

// The entity and what is transformed with it, each with its rule; raises for what cannot be.
using Work = std::vector<std::pair<RecordIndex, const Rule*>>;

void gather(OdDbDatabaseImpl& database, RecordIndex index, const OdGeMatrix3d& matrix, Work& work) {
    const dxf::Store& store = database.store;
    const Rule* rule = ruleOf(store, index);
    check(store, index, rule, matrix);
    work.emplace_back(index, rule);
    if (const uint32_t picture = PictureOf(database, index); picture != dxf::kNoRecord) {
        for (const RecordIndex part : *database.blocks.contents(picture)) {
            // A picture that holds dimensions would be a damaged one.
            const bool dimension = store.TypeName(part).ends_with("DIMENSION");
            if (!database.isErased(part) && !dimension) gather(database, part, matrix, work);
        }
    }
    if (store.At(index).type != RecordType::Insert) return;
    for (RecordIndex i = store.Next(index);
         i != dxf::kNoRecord && store.At(i).type == RecordType::Attrib; i = store.Next(i)) {
        if (!database.isErased(i)) work.emplace_back(i, ruleOf(store, i));
    }
}

}  // namespace

void TransformEntity(OdDbDatabaseImpl& database, RecordIndex index, const OdGeMatrix3d& matrix) {
    if (matrix == OdGeMatrix3d()) return;
    Work work;
    gather(database, index, matrix, work);
    for (const auto& [record, rule] : work) {
        if (database.store.At(record).type == RecordType::Polyline) {
            TransformVertices(database.store, record, matrix);
            continue;
        }
        GroupList groups(database.store, record);
        rule->whole ? rule->whole(groups, matrix) : applyRule(*rule, groups, matrix);
        groups.apply();
    }
}

OdGeVector3d NormalOf(const GroupList& groups) {
    const size_t i = groups.find(210);
    return i == GroupList::npos ? OdGeVector3d::kZAxis : groups.vector(i);
}

void SetNormal(GroupList& groups, const OdGeVector3d& normal) {
    const size_t i = groups.find(210);
    if (i != GroupList::npos) return groups.setVector(i, normal);
    if (normal == OdGeVector3d::kZAxis) return;
    const size_t point = groups.find(10);
    if (point == GroupList::npos) return;
    groups.insertBefore(point, groups.newWriter()
                                   .Double(210, normal.x)
                                   .Double(220, normal.y)
                                   .Double(230, normal.z)
                                   .Take());
}

void TransformExtrusion(GroupList& groups, const OcsTransform& ocs) {
    if (const size_t i = groups.find(39); i != GroupList::npos) {
        groups.setNumber(i, ocs.thickness(groups.number(i)));
    }
    SetNormal(groups, ocs.normal());
}

double ScaleOf(const OdGeMatrix3d& matrix) {
    return matrix.isTranslation() ? 1 : matrix.xAxis.length();
}
