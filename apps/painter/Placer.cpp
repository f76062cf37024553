// Placing shapes.
#include "apps/painter/Placer.h"

#include <algorithm>

#include "apps/painter/ListParts.h"

namespace painter {

namespace {

constexpr int kDeepest = 64;          // of blocks within blocks
constexpr size_t kPointsOfShape = 8;  // more than the mean

// Adds where a cubic curve reaches furthest along one axis, beyond its ends.
template <class Add>
void AddReach(double p0, double p1, double p2, double p3, const Add& add) {
    const double a = p3 - 3 * p2 + 3 * p1 - p0, b = 2 * (p2 - 2 * p1 + p0), c = p1 - p0;
    const double root = std::sqrt(std::max(b * b - 4 * a * c, 0.0));
    // In this form a flat curve, with an a of almost 0, is no special case.
    const double q = -0.5 * (b + std::copysign(root, b));
    for (const double t : {q / a, c / q}) {
        if (!(t > 0 && t < 1)) continue;
        const double s = 1 - t;
        add(p0 * s * s * s + 3 * p1 * s * s * t + 3 * p2 * s * t * t + p3 * t * t * t);
    }
}

// The bounds of a path; its control points lie beyond them.
Bounds BoundsOf(const Row<QPointF>& points, size_t next, const std::vector<Verb>& verbs) {
    Bounds bounds;
    for (const Verb verb : verbs) {
        if (verb == Verb::Curve) {
            const QPointF* p = &points[next - 1];
            const QPointF end = p[3];
            AddReach(p[0].x(), p[1].x(), p[2].x(), p[3].x(),
                     [&](double x) { bounds.Add(x, end.y()); });
            AddReach(p[0].y(), p[1].y(), p[2].y(), p[3].y(),
                     [&](double y) { bounds.Add(end.x(), y); });
            next += 2;
        }
        bounds.Add(points[next].x(), points[next].y());
        ++next;
    }
    return bounds;
}

// Coordinates beyond what doubles can place on a screen leave the item out.
bool IsNear(const Point3& point) {
    constexpr double kFarthest = 1e15;
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest;
}

ItemKind KindOf(const Shape& shape) {
    switch (shape.kind) {
        case ShapeKind::Fill:
            return ItemKind::Fill;
        case ShapeKind::Wide:
            return ItemKind::Wide;
        case ShapeKind::Dot:
            return ItemKind::Dot;
        default:
            break;
    }
    const auto& verbs = shape.path.verbs;
    const bool oneLine =
        std::all_of(verbs.begin() + 1, verbs.end(), [](Verb verb) { return verb == Verb::Line; });
    if (!oneLine) return ItemKind::Curve;
    return verbs.size() == 2 ? ItemKind::Line : ItemKind::Polyline;
}

}  // namespace

// The reference that a shape stands in, and those around it.
struct Placer::Frame {
    Matrix matrix;
    uint32_t layer = Tables::kLayerZero;
    Colour colour = kForeground;  // settled, for what is coloured by block
    LineType lineType = kContinuous;
    uint64_t handle = 0;  // 0: each shape has its own
    uint32_t block = 0;
    int depth = 0;
    const Frame* outer = nullptr;
};

void Placer::Take(const Shape& shape) { Place(shape, Frame()); }

bool Placer::IsWithin(const Frame& frame, uint32_t block) {
    for (const Frame* at = &frame; at && at->depth > 0; at = at->outer) {
        if (at->block == block) return true;
    }
    return false;
}

// Layer "0" in a block is the layer of the reference.
const Layer& Placer::LayerOf(const Style& style, const Frame& frame) const {
    const bool inherits = frame.depth > 0 && style.layer == Tables::kLayerZero;
    return drawing.tables.LayerAt(inherits ? frame.layer : style.layer);
}

Colour Placer::ColourOf(const Style& style, const Frame& frame, const Layer& layer) const {
    if (style.colour == kByLayer) return layer.colour;
    return style.colour == kByBlock ? frame.colour : style.colour;
}

LineType Placer::LineTypeOf(const Style& style, const Frame& frame, const Layer& layer) const {
    if (style.lineType == kLineTypeByLayer) return layer.lineType;
    return style.lineType == kLineTypeByBlock ? frame.lineType : style.lineType;
}

uint16_t Placer::ColourNumber(Colour colour) {
    if (colour == lastColour.first) return lastColour.second;
    const auto next = static_cast<uint16_t>(std::min<size_t>(built.colours.size(), 0xFFFF));
    const auto [place, added] = colourNumbers.try_emplace(colour, next);
    if (added && built.colours.size() < 0x10000) built.colours.push_back(colour);
    lastColour = {colour, place->second};
    return place->second;
}

uint16_t Placer::DashNumber(LineType lineType, float scale) {
    if (lineType == kContinuous || lineType >= kLineTypeByBlock) return 0;
    if (built.dashes.size() > 0xFFFF) return 0;
    const auto number = static_cast<uint16_t>(built.dashes.size());
    const auto [place, added] = dashNumbers.try_emplace({lineType, scale}, number);
    if (added) {
        std::vector<double> lengths = drawing.tables.PatternAt(lineType);
        const double factor = std::abs(scale * drawing.tables.LineTypeScale());
        for (double& length : lengths) length *= factor;
        built.dashes.push_back(std::move(lengths));
    }
    return place->second;
}

bool Placer::Count() {
    if (++built.placed > limit || part.points.size() / kPointsOfShape > limit) built.cut = true;
    return !built.cut;
}

void Placer::Place(const Shape& shape, const Frame& frame) {
    if (!Count()) return;
    const Layer& layer = LayerOf(shape.style, frame);
    if (layer.frozen) return;
    if (shape.kind == ShapeKind::Reference) {
        if (!layer.off || shape.showsOtherLayers) PlaceReference(shape, frame, layer);
        return;
    }
    if (layer.off) return;
    Item item{};
    item.handle = frame.handle ? frame.handle : shape.handle;
    item.colour = ColourNumber(ColourOf(shape.style, frame, layer));
    if (shape.kind == ShapeKind::Text) {
        PlaceText(shape, frame, item);
    } else {
        const bool line = shape.kind == ShapeKind::Stroke || shape.kind == ShapeKind::Endless;
        if (line) {
            item.dash =
                DashNumber(LineTypeOf(shape.style, frame, layer), shape.style.lineTypeScale);
        }
        PlacePath(shape, frame, item);
    }
}

void Placer::PlaceReference(const Shape& shape, const Frame& frame, const Layer& layer) {
    if (frame.depth >= kDeepest || IsWithin(frame, shape.block)) return;
    const std::vector<Shape>& shapes = drawing.blocks.ShapesOf(shape.block, drawing);
    if (shapes.empty()) return;
    Frame inner;
    const bool inherits = frame.depth > 0 && shape.style.layer == Tables::kLayerZero;
    inner.layer = inherits ? frame.layer : shape.style.layer;
    inner.colour = ColourOf(shape.style, frame, layer);
    inner.lineType = LineTypeOf(shape.style, frame, layer);
    inner.handle = frame.handle ? frame.handle : shape.handle;
    inner.block = shape.block;
    inner.depth = frame.depth + 1;
    inner.outer = &frame;
    const Array& array = shape.array;
    for (int row = 0; row < array.rows && !built.cut; ++row) {
        for (int column = 0; column < array.columns && Count(); ++column) {
            inner.matrix = shape.placement;
            const Point3 step = array.columnStep * column + array.rowStep * row;
            inner.matrix.origin = inner.matrix.origin + step;
            if (frame.depth > 0) inner.matrix = frame.matrix * inner.matrix;
            PlaceContents(shapes, inner);
        }
    }
}

void Placer::PlaceContents(const std::vector<Shape>& shapes, const Frame& frame) {
    for (const Shape& shape : shapes) {
        if (built.cut) return;
        Place(shape, frame);
    }
}

bool Placer::AddPoints(const std::vector<Point3>& points, const Frame& frame, Item& item) {
    item.first = static_cast<uint32_t>(part.points.size());
    item.count = static_cast<uint32_t>(points.size());
    for (const Point3& point : points) {
        const Point3 world = frame.depth > 0 ? frame.matrix.Map(point) : point;
        if (!IsNear(world)) {
            part.points.resize(item.first);
            return false;
        }
        item.bounds.Add(world.x, world.y);
        part.points.emplace_back(world.x, world.y);
    }
    return !points.empty();
}

void Placer::PlacePath(const Shape& shape, const Frame& frame, Item item) {
    if (shape.path.verbs.empty() || !AddPoints(shape.path.points, frame, item)) return;
    item.kind = KindOf(shape);
    const bool needsVerbs =
        item.kind == ItemKind::Fill || item.kind == ItemKind::Wide || item.kind == ItemKind::Curve;
    if (needsVerbs) {
        item.verb = static_cast<uint32_t>(part.verbs.size());
        part.verbs.insert(part.verbs.end(), shape.path.verbs.begin(), shape.path.verbs.end());
        item.bounds = BoundsOf(part.points, item.first, shape.path.verbs);
    }
    if (item.kind == ItemKind::Wide) {
        const Matrix& m = frame.matrix;
        const double scale = std::sqrt(std::abs(m.x.x * m.y.y - m.x.y * m.y.x));
        item.width = static_cast<float>(shape.width * scale);
        const double half = item.width / 2;
        item.bounds = {item.bounds.left - half, item.bounds.bottom - half, item.bounds.right + half,
                       item.bounds.top + half};
    }
    Finish(item, shape.kind == ShapeKind::Endless);
}

void Placer::PlaceText(const Shape& shape, const Frame& frame, Item item) {
    const Matrix& own = shape.text.placement;
    const Matrix place = frame.depth > 0 ? frame.matrix * own : own;
    const Font& font = drawing.fonts.At(shape.text.font);
    const double advance = shape.text.advance;
    for (const double x : {0.0, advance}) {
        for (const double y : {-font.Descent(), font.CapHeight()}) {
            const Point3 corner = place.Map({x, y, 0});
            if (!IsNear(corner)) return;
            item.bounds.Add(corner.x, corner.y);
        }
    }
    item.kind = ItemKind::Text;
    item.first = static_cast<uint32_t>(part.texts.size());
    const std::u16string& characters = shape.text.characters;
    TextItem& text = part.texts.emplace_back();
    text.placement = {place.x.x, place.x.y, place.y.x, place.y.y, place.origin.x, place.origin.y};
    text.first = static_cast<uint32_t>(part.characters.size());
    text.count = static_cast<uint32_t>(characters.size());
    text.advance = static_cast<float>(advance);
    text.tracking = static_cast<float>(shape.text.tracking);
    text.font = shape.text.font;
    text.plain = font.IsPlain(characters);
    part.characters.insert(part.characters.end(), characters.begin(), characters.end());
    Finish(item);
}

void Placer::Finish(const Item& item, bool endless) {
    if (!endless) built.extents.Add(item.bounds);
    AddItem(part, item);
}

}  // namespace painter
