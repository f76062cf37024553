// Texts of several lines: MTEXT, and those of multi-leaders.
#include <algorithm>

#include "apps/painter/Colours.h"
#include "apps/painter/Curves.h"
#include "apps/painter/MTextLayout.h"
#include "apps/painter/TextEntities.h"

namespace painter {

namespace {

// The groups 3 ... 3, 1 are pieces of one text, which may end inside a character.
std::u16string ContentsOf(const Entity& entity) {
    std::string raw;
    for (const dxf::Group& group : entity.tags.All()) {
        if (group.code == 3 || group.code == 1) raw += group.value;
    }
    return entity.drawing.store.Codec().Decode(raw);
}

Matrix FrameOf(const Point3& insertion, const Point3& direction, bool hasDirection, double rotation,
               const Point3& extrusion) {
    Matrix frame = ExtrusionMatrix(extrusion);
    if (hasDirection) {
        frame.x = Normalised(direction, {1, 0, 0});
        frame.y = Normalised(Cross(frame.z, frame.x), {0, 1, 0});
    } else {
        frame = frame * Rotation(Radians(rotation));
    }
    frame.origin = insertion;
    return frame;
}

ColumnLayout ColumnsOf(const Entity& entity) {
    ColumnLayout columns;
    const dxf::Record& record = entity.drawing.store.At(entity.record);
    const bool embeds = record.flags & dxf::kHasEmbedded;
    if (!embeds || record.type != dxf::RecordType::Mtext) return columns;
    Tags embedded;
    embedded.ReadEmbedded(entity.drawing.store, entity.record);
    columns.width = embedded.Real(44);
    columns.gutter = embedded.Real(45);
    if (embedded.Int(71) == 0 || !(columns.width > 0)) return columns;
    for (const dxf::Group& group : embedded.All()) {
        if (group.code == 46 && RealOf(group) > 0) columns.heights.push_back(RealOf(group));
    }
    const double height = std::max(embedded.Real(41), embedded.Real(43));
    const bool several = embedded.Int(72) > 1;
    if (columns.heights.empty() && several && height > 0) columns.heights.push_back(height);
    return columns;
}

// The area behind the text, if it has one.
void EmitBackground(const Entity& entity, const Matrix& frame, const MTextLayout& layout,
                    double height) {
    const int flags = entity.tags.Int(90);
    if (!(flags & 3)) return;
    const double edge = (std::clamp(entity.tags.Real(45, 1.5), 1.0, 5.0) - 1) * height;
    const Style style = entity.shape.style;
    entity.shape.style.colour = kBackground;
    if (!(flags & 2)) {
        if (entity.tags.Has(63)) {
            entity.shape.style.colour = ColourOfIndex(std::abs(entity.tags.Int(63)));
        }
        if (entity.tags.Has(421)) entity.shape.style.colour = ColourOfRgb(entity.tags.Int(421));
    }
    const double left = layout.left - edge, right = layout.right + edge;
    const double bottom = layout.bottom - edge, top = layout.top + edge;
    for (const Point3& corner :
         {Point3{left, bottom, 0}, Point3{right, bottom, 0}, Point3{right, top, 0},
          Point3{left, top, 0}, Point3{left, bottom, 0}}) {
        entity.shape.path.LineTo(frame.Map(corner));
    }
    entity.EmitPath(ShapeKind::Fill);
    entity.shape.style = style;
}

void EmitLayout(const Entity& entity, const Matrix& frame, MTextLayout layout) {
    const Style style = entity.shape.style;
    entity.shape.style.lineType = kContinuous;
    const auto colour = [&](const TextFormat& format) {
        return format.ownColour ? format.colour : style.colour;
    };
    for (const PlacedRule& rule : layout.rules) {
        entity.shape.style.colour = colour(rule.format);
        entity.shape.path.MoveTo(frame.Map({rule.fromX, rule.fromY, 0}));
        entity.shape.path.LineTo(frame.Map({rule.toX, rule.toY, 0}));
        entity.EmitPath(ShapeKind::Stroke);
    }
    for (PlacedText& text : layout.texts) {
        entity.shape.style.colour = colour(text.format);
        const double em =
            text.format.height / entity.drawing.fonts.At(text.format.font).CapHeight();
        const double width = em * text.format.width;
        const Matrix place = frame * Translation({text.x, text.y, 0}) *
                             Slanted(text.format.oblique) * Scaling(width, em, 1);
        EmitText(entity, place, std::move(text.characters), text.format.font, text.advance / width,
                 text.format.tracking);
    }
    entity.shape.style = style;
}

void ShowMText(const Entity& entity, std::u16string_view contents, std::string_view styleName,
               const Matrix& frame, MTextBox box) {
    const TextStyle& style = entity.drawing.tables.StyleOf(styleName);
    if (!(box.height > 0)) box.height = style.height > 0 ? style.height : 1;
    if (!(box.lineSpacing > 0)) box.lineSpacing = 1;
    if (box.attachment < 1 || box.attachment > 9) box.attachment = 1;
    TextFormat format;
    format.font = style.font;
    format.height = box.height;
    format.width = style.width > 0 ? style.width : 1;
    format.oblique = style.oblique;
    const auto paragraphs = ParseMText(contents, format, entity.drawing.fonts);
    MTextLayout layout = LayOut(paragraphs, box, entity.drawing.fonts);
    EmitBackground(entity, frame, layout, box.height);
    EmitLayout(entity, frame, std::move(layout));
}

// The content of a multi-leader stands between marks, where the codes have meanings of their own.
struct LeaderContent {
    struct Line {
        std::vector<dxf::Group> points;
        Point3 landing;  // where the lines of its leader meet
    };
    std::vector<dxf::Group> context;
    std::vector<dxf::Group> leader;  // of the one that is being read
    std::vector<Line> lines;
};

Point3 LandingOf(const std::vector<dxf::Group>& leader) {
    Tags tags;
    tags.Assign(leader);
    return tags.Point(10);
}

LeaderContent LeaderContentOf(const Entity& entity) {
    enum class Place { Outside, Context, Leader, Line } place = Place::Outside;
    LeaderContent content;
    for (const dxf::Group& group : entity.tags.All()) {
        const bool begins = group.value.ends_with('{');
        if ((group.code == 300 && begins) || group.code == 303) {
            place = Place::Context;
        } else if (group.code == 302 && begins) {
            place = Place::Leader;
            content.leader.clear();
        } else if (group.code == 304 && begins) {
            place = Place::Line;
            content.lines.push_back({{}, LandingOf(content.leader)});
        } else if (group.code == 305) {
            place = Place::Leader;
        } else if (group.code == 301) {
            place = Place::Outside;
        } else if (place == Place::Context) {
            content.context.push_back(group);
        } else if (place == Place::Leader) {
            content.leader.push_back(group);
        } else if (place == Place::Line) {
            content.lines.back().points.push_back(group);
        }
    }
    return content;
}

}  // namespace

void ReadMText(const Entity& entity) {
    const Tags& tags = entity.tags;
    MTextBox box;
    box.width = std::max(tags.Real(41), 0.0);
    box.attachment = tags.Int(71, 1);
    box.lineSpacing = tags.Real(44, 1);
    box.exactSpacing = tags.Int(73) == 2;
    box.height = tags.Real(40);
    box.columns = ColumnsOf(entity);
    // Of direction and angle the one that comes last holds.
    const dxf::Group* direction = tags.Find(11);
    const dxf::Group* angle = tags.Find(50);
    const bool hasDirection = direction && (!angle || angle < direction);
    ShowMText(
        entity, ContentsOf(entity), tags.Raw(7),
        FrameOf(tags.Point(10), tags.Point(11), hasDirection, tags.Real(50), tags.Extrusion()),
        box);
}

void ReadMultiLeader(const Entity& entity) {
    const LeaderContent content = LeaderContentOf(entity);
    Tags tags;
    for (const LeaderContent::Line& line : content.lines) {
        tags.Assign(line.points);
        for (const Point3& point : PointsOf(tags, 10)) entity.shape.path.LineTo(point);
        entity.shape.path.LineTo(line.landing);
        entity.EmitPath(ShapeKind::Stroke);
    }
    tags.Assign(content.context);
    const dxf::Group* text = tags.Find(304);
    if (!text || tags.Int(290, 1) == 0) return;
    MTextBox box;
    box.width = std::max(tags.Real(43), 0.0);
    box.height = tags.Real(41);
    box.lineSpacing = tags.Real(45, 1);
    box.attachment = std::clamp(tags.Int(171, 1), 1, 3);  // left, centre, right; always at the top
    const Matrix frame = FrameOf(tags.Point(12), tags.Point(13), tags.Has(13), 0,
                                 tags.Has(11) ? tags.Point(11) : Point3{0, 0, 1});
    ShowMText(entity, entity.drawing.store.Codec().Decode(text->value), {}, frame, box);
}

}  // namespace painter
