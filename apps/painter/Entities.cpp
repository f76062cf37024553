// Which function reads which entity.
#include "apps/painter/Entities.h"

#include "apps/painter/Colours.h"

namespace painter {

namespace {

using ReadFunction = void (*)(const Entity&);

const std::unordered_map<std::string_view, ReadFunction> kReaders = {
    {"LINE", ReadLine},
    {"3DLINE", ReadLine},
    {"POINT", ReadPoint},
    {"RAY", ReadEndless},
    {"XLINE", ReadEndless},
    {"CIRCLE", ReadCircle},
    {"ARC", ReadArc},
    {"ELLIPSE", ReadEllipse},
    {"SPLINE", ReadSpline},
    {"HELIX", ReadSpline},
    {"SOLID", ReadSolid},
    {"TRACE", ReadSolid},
    {"3DFACE", ReadFace},
    {"LEADER", ReadLeader},
    {"MLINE", ReadMultiLine},
    {"WIPEOUT", ReadWipeout},
    {"IMAGE", ReadImage},
    {"LWPOLYLINE", ReadLightPolyline},
    {"POLYLINE", ReadPolyline},
    {"HATCH", ReadHatch},
    {"MPOLYGON", ReadHatch},
    {"TEXT", ReadText},
    {"ATTDEF", ReadAttributeDefinition},
    {"ATTRIB", ReadAttribute},
    {"MTEXT", ReadMText},
    {"MULTILEADER", ReadMultiLeader},
    {"MLEADER", ReadMultiLeader},
    {"INSERT", ReadInsert},
    {"DIMENSION", ReadDimension},
    {"ARC_DIMENSION", ReadDimension},
    {"LARGE_RADIAL_DIMENSION", ReadDimension},
    {"ACAD_TABLE", ReadTable},
};

}  // namespace

void Entity::EmitPath(ShapeKind kind) const {
    if (!shape.path.points.empty()) Emit(kind);
    shape.path.Clear();
}

Style StyleOf(Drawing& drawing, dxf::RecordIndex record, const Tags& tags) {
    Style style;
    style.layer = drawing.tables.LayerOf(record);
    style.colour = ColourOf(tags, kByLayer);
    style.lineType = drawing.tables.LineTypeOf(tags.Raw(6));
    style.lineTypeScale = static_cast<float>(tags.Real(48, 1));
    return style;
}

void EntityReader::Read(dxf::RecordIndex record) {
    if (drawing.store.At(record).flags & dxf::kErased) return;
    const auto reader = kReaders.find(drawing.store.TypeName(record));
    if (reader == kReaders.end()) return;
    tags.Read(drawing.store, record);
    if (tags.Int(60) == 1) return;
    shape.style = StyleOf(drawing, record, tags);
    shape.handle = drawing.store.At(record).handle;
    shape.path.Clear();
    reader->second({drawing, sink, record, tags, shape, inBlock});
}

}  // namespace painter
