// Conversion of groups between drawings.
#include "platform/drawing/GroupCopy.h"

#include "platform/text/Conversion.h"

using dxf::Format;
using dxf::Group;
using dxf::ValueKind;
using dxf::Version;

namespace {

// Groups that came with a release, by the subclass in which they stand.
struct GroupRow {
    std::string_view subclass;
    int first, last;
    Version since;
};
constexpr GroupRow kGroups[] = {
    {"AcDbEntity", 92, 92, Version::R2000},    // with its 310: the picture that a program
    {"AcDbEntity", 160, 160, Version::R2010},  // keeps for others
    {"AcDbEntity", 310, 310, Version::R2000},  //
    {"AcDbEntity", 370, 370, Version::R2000},  //
    {"AcDbEntity", 390, 390, Version::R2000},  //
    {"AcDbEntity", 420, 440, Version::R2004},  //
    {"AcDbEntity", 284, 284, Version::R2007},  //
    {"AcDbEntity", 347, 348, Version::R2007},  //
    {"AcDbLayerTableRecord", 290, 290, Version::R2000},
    {"AcDbLayerTableRecord", 370, 390, Version::R2000},
    {"AcDbLayerTableRecord", 347, 348, Version::R2007},
    {"AcDbBlockTableRecord", 70, 70, Version::R2007},
    {"AcDbBlockTableRecord", 280, 281, Version::R2007},
    {"AcDbBlockTableRecord", 310, 310, Version::R2000},
    {"AcDbBlockTableRecord", 340, 340, Version::R2000},
    {"AcDbHatch", 450, 470, Version::R2004},
    {"AcDbMText", 46, 46, Version::R2007},
    {"AcDbMText", 90, 90, Version::R2004},
    {"AcDbMText", 420, 441, Version::R2004},
    {"AcDbAttribute", 280, 280, Version::R2007},
    {"AcDbAttribute", 71, 72, Version::R2018},
    {"AcDbAttribute", 10, 33, Version::R2018},
    {"AcDbAttributeDefinition", 280, 280, Version::R2007},
    {"AcDbAttributeDefinition", 71, 72, Version::R2018},
    {"AcDbAttributeDefinition", 10, 33, Version::R2018},
};

struct TypeRow {
    std::string_view type;
    Version since;
};
constexpr TypeRow kTypes[] = {
    {"ACAD_TABLE", Version::R2004},
    {"ARC_DIMENSION", Version::R2004},
    {"BODY", Version::R13},
    {"3DSOLID", Version::R13},
    {"DGNUNDERLAY", Version::R2007},
    {"DWFUNDERLAY", Version::R2007},
    {"ELLIPSE", Version::R13},
    {"EXTRUDEDSURFACE", Version::R2007},
    {"HATCH", Version::R14},
    {"HELIX", Version::R2007},
    {"IMAGE", Version::R14},
    {"LARGE_RADIAL_DIMENSION", Version::R2004},
    {"LEADER", Version::R13},
    {"LIGHT", Version::R2007},
    {"LOFTEDSURFACE", Version::R2007},
    {"LWPOLYLINE", Version::R14},
    {"MESH", Version::R2010},
    {"MLINE", Version::R13},
    {"MTEXT", Version::R13},
    {"MULTILEADER", Version::R2004},
    {"OLE2FRAME", Version::R14},
    {"PDFUNDERLAY", Version::R2010},
    {"PLANESURFACE", Version::R2007},
    {"RAY", Version::R13},
    {"REGION", Version::R13},
    {"REVOLVEDSURFACE", Version::R2007},
    {"SECTION", Version::R2007},
    {"SPLINE", Version::R13},
    {"SURFACE", Version::R2007},
    {"SWEPTSURFACE", Version::R2007},
    {"TOLERANCE", Version::R13},
    {"WIPEOUT", Version::R14},
    {"XLINE", Version::R13},
};

std::string bytesOfHex(std::string_view hex) {
    const auto digit = [](char c) { return c <= '9' ? c - '0' : (c & ~0x20) - 'A' + 10; };
    std::string bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(digit(hex[i]) * 16 + digit(hex[i + 1]));
    }
    return bytes;
}

}  // namespace

GroupCopy::GroupCopy(const dxf::Store& from, const dxf::Store& to)
    : from(from), to(to), source(from.FileVersion()), version(to.FileVersion()) {
    samePage =
        from.Codec().Utf8() == to.Codec().Utf8() &&
        (to.Codec().Utf8() || text::CompareNoCase(text::WideFromNarrow(from.CodePageName()),
                                                  text::WideFromNarrow(to.CodePageName())) == 0);
    sameFormat = from.FileFormat() == to.FileFormat();
    samePage = samePage && sameFormat;  // a value of a binary drawing may hold line ends
}

std::string GroupCopy::Text(std::string_view raw) const {
    return samePage ? std::string(raw) : to.Codec().Encode(from.Codec().Decode(raw));
}

void GroupCopy::Write(dxf::GroupWriter& writer, const Group& group) const {
    const ValueKind kind = dxf::KindOfCode(group.code);
    if (kind == ValueKind::String) {
        writer.String(group.code, Text(group.value));
        return;
    }
    if (sameFormat && group.format == Format::Ascii) {
        writer.String(group.code, group.value);  // the number as it is spelled
        return;
    }
    switch (kind) {
        case ValueKind::Double:
            writer.Double(group.code, group.AsDouble());
            break;
        case ValueKind::Binary:
            writer.Chunk(group.code, group.format == Format::Ascii ? bytesOfHex(group.value)
                                                                   : std::string(group.value));
            break;
        default:
            writer.Int(group.code, group.AsInt());
    }
}

bool GroupCopy::IsKnown(const Group& group, std::string_view subclass, bool embedded) const {
    if (version >= source) return true;
    if (embedded && group.code < 1000) return version >= Version::R2018;
    for (const GroupRow& row : kGroups) {
        if (row.subclass == subclass && group.code >= row.first && group.code <= row.last) {
            return version >= row.since;
        }
    }
    return true;
}

bool GroupCopy::HasType(std::string_view type) const {
    if (version >= source) return true;
    for (const TypeRow& row : kTypes) {
        if (row.type == type) return version >= row.since;
    }
    return true;
}
