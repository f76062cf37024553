// Texts of one line: TEXT, ATTRIB, ATTDEF.
#include "apps/painter/TextEntities.h"

#include <algorithm>

namespace painter {

namespace {

enum Horizontal { kLeft, kCentre, kRight, kAligned, kMiddle, kFit };
enum Vertical { kBaseline, kBottom, kMiddleOfCapitals, kTop };
constexpr int kBackwards = 2, kUpsideDown = 4;
constexpr int kInvisible = 1, kConstant = 2;

// Where a text stands and how large it is, before its letters are placed.
struct Frame {
    Point3 anchor;
    double rotation = 0;                   // radians
    double height = 1;                     // of the capitals
    double width = 1;                      // factor
    double alongText = 0, acrossText = 0;  // of the anchor, in em
};

// Parts of the text's length that lie before the anchor.
double PartBefore(int horizontal) {
    return horizontal == kRight ? 1.0 : horizontal == kLeft ? 0.0 : 0.5;
}

double AcrossOf(int vertical, int horizontal, const Font& font) {
    if (horizontal == kMiddle) return font.CapHeight() / 2;
    switch (vertical) {
        case kBottom:
            return -font.Descent();
        case kMiddleOfCapitals:
            return font.CapHeight() / 2;
        case kTop:
            return font.CapHeight();
        default:
            return 0;
    }
}

// Between two points: the width follows, and for aligned texts the height too.
void Stretch(Frame& frame, const Point3& end, bool keepHeight, double length, const Font& font) {
    const Point3 along = end - frame.anchor;
    const double wanted = std::hypot(along.x, along.y);
    if (!(wanted > 0) || !(length > 0)) return;
    frame.rotation = std::atan2(along.y, along.x);
    const double em = wanted / length;  // at a width factor of 1
    if (keepHeight) {
        frame.width = em * font.CapHeight() / frame.height;
    } else {
        frame.height = em / frame.width * font.CapHeight();
    }
}

Frame FrameOf(const Tags& tags, const TextStyle& style, const Font& font, double length,
              int verticalCode) {
    Frame frame;
    frame.height = tags.Real(40, style.height);
    if (!(frame.height > 0)) frame.height = style.height > 0 ? style.height : 1;
    frame.width = tags.Real(41, 1);  // the style's own holds for new texts only
    if (!(frame.width > 0)) frame.width = 1;
    frame.rotation = Radians(tags.Real(50));
    frame.anchor = tags.Point(10);
    const int horizontal = tags.Int(72), vertical = tags.Int(verticalCode);
    if (horizontal == kAligned || horizontal == kFit) {
        if (tags.Has(11)) Stretch(frame, tags.Point(11), horizontal == kFit, length, font);
        return frame;
    }
    if ((horizontal != kLeft || vertical != kBaseline) && tags.Has(11))
        frame.anchor = tags.Point(11);
    frame.alongText = length * PartBefore(horizontal);
    frame.acrossText = AcrossOf(vertical, horizontal, font);
    return frame;
}

// From em units along the baseline to the drawing: moved to the anchor, sized, slanted, mirrored,
// turned, in the plane of the entity.
Matrix PlacementOf(const Frame& frame, const Tags& tags, const Font& font, double oblique) {
    const double em = frame.height / font.CapHeight();
    const int generation = tags.Int(71);
    const double along = generation & kBackwards ? -em : em;
    const double across = generation & kUpsideDown ? -em : em;
    const Matrix turned = Rotation(frame.rotation);
    Matrix place;
    place.x = turned.x * (along * frame.width);
    place.y = turned.x * (along * Slanted(oblique).y.x) + turned.y * across;
    place.origin = frame.anchor - place.x * frame.alongText - place.y * frame.acrossText;
    return tags.HasExtrusion() ? ExtrusionMatrix(tags.Extrusion()) * place : place;
}

void ReadLineOfText(const Entity& entity, std::u16string raw, int verticalCode) {
    CodedText text = DecodeText(std::move(raw));
    if (text.characters.find_first_not_of(u' ') == std::u16string::npos) return;
    const Tags& tags = entity.tags;
    const TextStyle& style = entity.drawing.tables.StyleOf(tags.Raw(7));
    const Font& font = entity.drawing.fonts.At(style.font);
    const double length = font.Width(text.characters);
    const Frame frame = FrameOf(tags, style, font, length, verticalCode);
    const Matrix place = PlacementOf(frame, tags, font, tags.Real(51));
    const std::u16string_view characters = text.characters;
    for (const auto& [rule, begin, end] : text.rules) {
        EmitRule(entity, place, font, rule, font.Width(characters.substr(0, begin)),
                 font.Width(characters.substr(0, end)));
    }
    EmitText(entity, place, std::move(text.characters), style.font, length);
}

std::u16string Decoded(const Entity& entity, int code) {
    return entity.drawing.store.Codec().Decode(entity.tags.Raw(code));
}

}  // namespace

void EmitText(const Entity& entity, const Matrix& place, std::u16string characters, uint16_t font,
              double advance, double tracking) {
    Text& text = entity.shape.text;
    text.placement = place;
    text.characters = std::move(characters);
    text.font = font;
    text.advance = advance;
    text.tracking = tracking;
    entity.Emit(ShapeKind::Text);
}

void EmitRule(const Entity& entity, const Matrix& place, const Font& font, Rule rule, double from,
              double to) {
    const double height = rule == Rule::Under  ? -0.15
                          : rule == Rule::Over ? font.CapHeight() + 0.15
                                               : font.CapHeight() / 2;
    const LineType lineType = std::exchange(entity.shape.style.lineType, kContinuous);
    entity.shape.path.MoveTo(place.Map({from, height, 0}));
    entity.shape.path.LineTo(place.Map({to, height, 0}));
    entity.EmitPath(ShapeKind::Stroke);
    entity.shape.style.lineType = lineType;
}

Matrix Slanted(double degrees) {
    Matrix matrix;
    if (degrees == 0) return matrix;
    // Negative angles come as those of a full turn, too.
    const double turned = std::remainder(degrees, 360.0);
    matrix.y.x = std::tan(Radians(std::clamp(turned, -85.0, 85.0)));
    return matrix;
}

void ReadText(const Entity& entity) { ReadLineOfText(entity, Decoded(entity, 1), 73); }

void ReadAttribute(const Entity& entity) {
    if (entity.tags.Int(70) & kInvisible) return;
    const bool lines = entity.drawing.store.At(entity.record).flags & dxf::kHasEmbedded;
    if (lines) {
        Tags embedded;
        embedded.ReadEmbedded(entity.drawing.store, entity.record);
        ReadMText({entity.drawing, entity.sink, entity.record, embedded, entity.shape,
                   entity.inBlock, entity.reader});
        return;
    }
    ReadLineOfText(entity, Decoded(entity, 1), 74);
}

// In a block only constant ones show; elsewhere a definition shows its tag.
void ReadAttributeDefinition(const Entity& entity) {
    const int flags = entity.tags.Int(70);
    const bool constant = flags & kConstant;
    if (entity.inBlock && (!constant || flags & kInvisible)) return;
    ReadLineOfText(entity, Decoded(entity, constant ? 1 : 2), 74);
}

}  // namespace painter
