// Which function reads which entity.
#include "apps/painter/Entities.h"

#include "apps/painter/Colours.h"

namespace painter {

namespace {

using ReadFunction = void (*)(const Entity&);

// Cheaper than a hash of all letters; few of the names collide.
struct EndsOfName {
    size_t operator()(std::string_view name) const {
        if (name.empty()) return 0;
        const auto letter = [](char c) { return static_cast<size_t>(static_cast<uint8_t>(c)); };
        return letter(name.front()) << 10 ^ letter(name.back()) << 5 ^ name.size();
    }
};

const std::unordered_map<std::string_view, ReadFunction, EndsOfName> kReaders = {
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
    tags.Read(drawing.store, record);
    const auto reader = kReaders.find(tags.Raw(0));
    if (reader == kReaders.end()) return;
    if (tags.Int(60) == 1) return;
    shape.style = StyleOf(drawing, record, tags);
    shape.handle = drawing.store.At(record).handle;
    shape.path.Clear();
    reader->second({drawing, *sink, record, tags, shape, inBlock, *this});
}

EntityReader& EntityReader::ForParts(ShapeSink& taker) {
    if (!parts) parts = std::make_unique<EntityReader>(drawing, taker, inBlock);
    parts->sink = &taker;
    return *parts;
}

}  // namespace painter
