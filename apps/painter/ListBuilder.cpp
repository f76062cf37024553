// From shapes to items: blocks are placed, layers, colours and line types settled.
#include "apps/painter/ListBuilder.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <map>
#include <span>
#include <thread>

#include "apps/painter/Entities.h"
#include "apps/painter/ListParts.h"

namespace painter {

namespace {

constexpr int kDeepest = 64;          // of blocks within blocks
constexpr size_t kPointsOfShape = 8;  // more than the mean

// The reference that a shape stands in, and those around it.
struct Frame {
    Matrix matrix;
    uint32_t layer = Tables::kLayerZero;
    Colour colour = kForeground;  // settled, for what is coloured by block
    LineType lineType = kContinuous;
    uint64_t handle = 0;  // 0: each shape has its own
    uint32_t block = 0;
    int depth = 0;
    const Frame* outer = nullptr;
};

class Builder : public ShapeSink {
  public:
    Builder(Drawing& drawing, DisplayList& list, size_t limit)
        : drawing(drawing), list(list), limit(limit) {}

    void Take(const Shape& shape) override { Place(shape, Frame()); }
    bool IsFull() const { return list.cut; }

  private:
    void Place(const Shape& shape, const Frame& frame);
    void PlaceReference(const Shape& shape, const Frame& frame, const Layer& layer);
    void PlaceContents(const std::vector<Shape>& shapes, const Frame& frame);
    void PlaceText(const Shape& shape, const Frame& frame, Item item);
    void PlacePath(const Shape& shape, const Frame& frame, Item item);
    bool AddPoints(const std::vector<Point3>& points, const Frame& frame, Item& item);
    void Finish(const Item& item, bool endless = false);
    bool Count();

    const Layer& LayerOf(const Style& style, const Frame& frame) const;
    Colour ColourOf(const Style& style, const Frame& frame, const Layer& layer) const;
    LineType LineTypeOf(const Style& style, const Frame& frame, const Layer& layer) const;
    uint16_t ColourNumber(Colour colour);
    uint16_t DashNumber(LineType lineType, float scale);

    Drawing& drawing;
    DisplayList& list;
    size_t limit;
    size_t placed = 0;  // shapes met, painted or not
    std::unordered_map<Colour, uint16_t> colourNumbers;
    std::map<std::pair<LineType, float>, uint16_t> dashNumbers;
    std::pair<Colour, uint16_t> lastColour{kByBlock, 0};
};

bool IsWithin(const Frame& frame, uint32_t block) {
    for (const Frame* at = &frame; at && at->depth > 0; at = at->outer) {
        if (at->block == block) return true;
    }
    return false;
}

// Layer "0" in a block is the layer of the reference.
const Layer& Builder::LayerOf(const Style& style, const Frame& frame) const {
    const bool inherits = frame.depth > 0 && style.layer == Tables::kLayerZero;
    return drawing.tables.LayerAt(inherits ? frame.layer : style.layer);
}

Colour Builder::ColourOf(const Style& style, const Frame& frame, const Layer& layer) const {
    if (style.colour == kByLayer) return layer.colour;
    return style.colour == kByBlock ? frame.colour : style.colour;
}

LineType Builder::LineTypeOf(const Style& style, const Frame& frame, const Layer& layer) const {
    if (style.lineType == kLineTypeByLayer) return layer.lineType;
    return style.lineType == kLineTypeByBlock ? frame.lineType : style.lineType;
}

uint16_t Builder::ColourNumber(Colour colour) {
    if (colour == lastColour.first) return lastColour.second;
    const auto next = static_cast<uint16_t>(std::min<size_t>(list.colours.size(), 0xFFFF));
    const auto [place, added] = colourNumbers.try_emplace(colour, next);
    if (added && list.colours.size() < 0x10000) list.colours.push_back(colour);
    lastColour = {colour, place->second};
    return place->second;
}

uint16_t Builder::DashNumber(LineType lineType, float scale) {
    if (lineType == kContinuous || lineType >= kLineTypeByBlock) return 0;
    if (list.dashes.size() > 0xFFFF) return 0;
    const auto number = static_cast<uint16_t>(list.dashes.size());
    const auto [place, added] = dashNumbers.try_emplace({lineType, scale}, number);
    if (added) {
        std::vector<double> lengths = drawing.tables.PatternAt(lineType);
        const double factor = std::abs(scale * drawing.tables.LineTypeScale());
        for (double& length : lengths) length *= factor;
        list.dashes.push_back(std::move(lengths));
    }
    return place->second;
}

bool Builder::Count() {
    if (++placed > limit || list.points.size() / kPointsOfShape > limit) list.cut = true;
    return !list.cut;
}

void Builder::Place(const Shape& shape, const Frame& frame) {
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

void Builder::PlaceReference(const Shape& shape, const Frame& frame, const Layer& layer) {
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
    for (int row = 0; row < array.rows && !list.cut; ++row) {
        for (int column = 0; column < array.columns && Count(); ++column) {
            const Point3 step = array.columnStep * column + array.rowStep * row;
            inner.matrix = frame.matrix * (Translation(step) * shape.placement);
            PlaceContents(shapes, inner);
        }
    }
}

void Builder::PlaceContents(const std::vector<Shape>& shapes, const Frame& frame) {
    for (const Shape& shape : shapes) {
        if (list.cut) return;
        Place(shape, frame);
    }
}

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
Bounds BoundsOf(const std::vector<QPointF>& points, size_t next, const std::vector<Verb>& verbs) {
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
bool Builder::AddPoints(const std::vector<Point3>& points, const Frame& frame, Item& item) {
    constexpr double kFarthest = 1e15;
    item.first = static_cast<uint32_t>(list.points.size());
    item.count = static_cast<uint32_t>(points.size());
    for (const Point3& point : points) {
        const Point3 world = frame.depth > 0 ? frame.matrix.Map(point) : point;
        if (!(std::abs(world.x) < kFarthest) || !(std::abs(world.y) < kFarthest)) {
            list.points.resize(item.first);
            return false;
        }
        item.bounds.Add(world.x, world.y);
        list.points.emplace_back(world.x, world.y);
    }
    return !points.empty();
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

void Builder::PlacePath(const Shape& shape, const Frame& frame, Item item) {
    if (shape.path.verbs.empty() || !AddPoints(shape.path.points, frame, item)) return;
    item.kind = KindOf(shape);
    const bool needsVerbs =
        item.kind == ItemKind::Fill || item.kind == ItemKind::Wide || item.kind == ItemKind::Curve;
    if (needsVerbs) {
        item.verb = static_cast<uint32_t>(list.verbs.size());
        item.verbCount = static_cast<uint32_t>(shape.path.verbs.size());
        list.verbs.insert(list.verbs.end(), shape.path.verbs.begin(), shape.path.verbs.end());
        item.bounds = BoundsOf(list.points, item.first, shape.path.verbs);
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

void Builder::PlaceText(const Shape& shape, const Frame& frame, Item item) {
    const Matrix place = frame.matrix * shape.text.placement;
    const Font& font = list.fonts->At(shape.text.font);
    item.kind = ItemKind::Text;
    const double advance = shape.text.advance;
    const std::vector<Point3> box{{0, -font.Descent(), 0},
                                  {advance, -font.Descent(), 0},
                                  {advance, font.CapHeight(), 0},
                                  {0, font.CapHeight(), 0}};
    Frame own;
    own.matrix = place;
    own.depth = 1;
    if (!AddPoints(box, own, item)) return;
    list.points.resize(item.first);
    item.first = static_cast<uint32_t>(list.texts.size());
    item.count = 0;
    TextItem text;
    text.placement =
        QTransform(place.x.x, place.x.y, place.y.x, place.y.y, place.origin.x, place.origin.y);
    text.first = static_cast<uint32_t>(list.characters.size());
    text.count = static_cast<uint32_t>(shape.text.characters.size());
    text.advance = static_cast<float>(advance);
    text.tracking = static_cast<float>(shape.text.tracking);
    text.font = shape.text.font;
    text.plain = font.IsPlain(shape.text.characters);
    list.characters += shape.text.characters;
    list.texts.push_back(text);
    Finish(item);
}

void Builder::Finish(const Item& item, bool endless) {
    if (!endless) list.extents.Add(item.bounds);
    AddItem(list, item);
}

}  // namespace

namespace {

constexpr size_t kStep = 4096;          // entities between two looks at the clock of the caller
constexpr size_t kLeastOfPart = 20000;  // entities; a thread for fewer does not pay
constexpr unsigned kMostParts = 8;

using Records = std::span<const dxf::RecordIndex>;
using GoesOn = std::function<bool(size_t done)>;

// A thread has fonts, tables and blocks of its own: each notes what it has looked up.
bool ReadInto(DisplayList& list, Fonts& fonts, const dxf::Store& store, Records records,
              size_t limit, const GoesOn& goesOn) {
    Drawing read(store, fonts);
    Builder builder(read, list, limit);
    EntityReader reader(read, builder, false);
    list.items.reserve(records.size() + records.size() / 2);
    list.points.reserve(records.size() * 2);
    for (size_t i = 0; i < records.size() && !builder.IsFull(); ++i) {
        if (i % kStep == 0 && !goesOn(i)) return false;
        reader.Read(records[i]);
    }
    return true;
}

struct Part {
    DisplayList list;
    std::vector<Fonts::Choice> fonts;  // by their numbers in the list
};

Part ReadPart(const dxf::Store& store, Records records, size_t limit, const GoesOn& goesOn) {
    Part part;
    const auto fonts = std::make_shared<Fonts>();
    part.list.fonts = fonts;
    ReadInto(part.list, *fonts, store, records, limit, goesOn);
    part.fonts = fonts->Choices();
    part.list.fonts.reset();  // on the thread that made them
    return part;
}

// Splits evenly; the first one is the caller's.
std::vector<Records> Split(Records records) {
    const size_t threads = std::clamp(std::thread::hardware_concurrency(), 1u, kMostParts);
    const size_t count = std::clamp<size_t>(records.size() / kLeastOfPart, 1, threads);
    std::vector<Records> parts;
    for (size_t i = 0; i < count; ++i) {
        const size_t begin = records.size() * i / count, end = records.size() * (i + 1) / count;
        parts.push_back(records.subspan(begin, end - begin));
    }
    return parts;
}

}  // namespace

std::optional<DisplayList> BuildDisplayList(OdDbDatabase& drawing, const BuildOptions& options) {
    const dxf::Store& store = drawing.store();
    constexpr size_t kLeast = 4'000'000;
    const size_t limit = options.limit ? options.limit : kLeast + size_t{4} * store.Count();
    const std::vector<dxf::RecordIndex> records = EntitiesOf(drawing, options.pages);
    const std::vector<Records> parts = Split(records);

    std::atomic<bool> ended = false;
    std::vector<std::future<Part>> others;
    for (const Records& part : std::span(parts).subspan(1)) {
        others.push_back(std::async(std::launch::async, ReadPart, std::cref(store), part, limit,
                                    [&ended](size_t) { return !ended; }));
    }
    const auto fonts = std::make_shared<Fonts>();
    DisplayList list;
    list.fonts = fonts;
    ended = !ReadInto(list, *fonts, store, parts.front(), limit, [&](size_t done) {
        const double share = static_cast<double>(done) / static_cast<double>(parts.front().size());
        return !options.progress || options.progress(share);
    });
    for (auto& other : others) {
        Part part = other.get();
        if (!ended && !list.cut) Append(list, std::move(part.list), fonts->NumbersOf(part.fonts));
    }
    if (ended) return std::nullopt;
    return list;
}

}  // namespace painter
