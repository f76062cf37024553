// The display list: everything that a view paints, in flat arrays, settled and in world
// coordinates.
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

#include "apps/painter/AffineMap.h"
#include "apps/painter/Fonts.h"
#include "apps/painter/LargeBlocks.h"
#include "apps/painter/Shape.h"

namespace painter {

struct Bounds {
    double left = std::numeric_limits<double>::infinity(), bottom = left;
    double right = -std::numeric_limits<double>::infinity(), top = right;

    bool IsEmpty() const { return !(left <= right); }
    void Add(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        bottom = std::min(bottom, y);
        top = std::max(top, y);
    }
    void Add(const Bounds& other) {
        left = std::min(left, other.left);
        right = std::max(right, other.right);
        bottom = std::min(bottom, other.bottom);
        top = std::max(top, other.top);
    }
    bool Meets(const Bounds& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top &&
               other.bottom <= top;
    }
    double Width() const { return right - left; }
    double Height() const { return top - bottom; }
};

enum class ItemKind : uint8_t { Line, Polyline, Curve, Fill, Wide, Dot, Text };

struct Item {
    Bounds bounds;
    uint64_t handle;  // of the entity of the page that it belongs to, or of its attribute
    uint32_t first;   // point, or text
    uint32_t count;   // of points
    uint32_t verb;    // first one; for kinds Curve, Fill and Wide
    float width;      // of kind Wide
    uint16_t colour;  // number of a colour
    uint16_t dash;    // number of a dash pattern
    ItemKind kind;
};

// A stretch of text; its own coordinates are those of painter::Text.
struct TextItem {
    AffineMap placement;    // em units to the world
    uint32_t first, count;  // characters
    float advance;
    float tracking;
    uint16_t font;
    bool plain;  // one glyph for each character
};

// Grows by doubling, as vectors do, but with few pages to touch.
template <class Value>
using Row = std::vector<Value, LargeBlocks<Value>>;

// Items that follow each other, with all that they count by number but colours, dashes and fonts.
struct ListPart {
    Row<Item> items;  // in the order of painting
    Row<QPointF> points;
    Row<Verb> verbs;
    Row<TextItem> texts;
    Row<char16_t> characters;

    // Bounds of kRun items each, so that what is out of sight is passed over quickly.
    static constexpr size_t kRun = 64;
    std::vector<Bounds> runs;

    std::u16string_view CharactersOf(const TextItem& text) const {
        return {characters.data() + text.first, text.count};
    }
};

// Built once from a drawing; painting and looking up change nothing, so that any number of views
// may share it. World coordinates are drawing units, y upwards.
struct DisplayList {
    std::shared_ptr<const Fonts> fonts;
    std::vector<ListPart> parts;                  // in the order of painting
    std::vector<Colour> colours;                  // kForeground, kBackground and settled ones
    std::vector<std::vector<double>> dashes{{}};  // in drawing units; number 0 is no pattern
    Bounds extents;                               // without endless lines
    bool cut = false;  // there is more than can be painted; what is here is the beginning

    size_t ItemCount() const;
};

// Visits the items within the window, in their order, each with its part.
template <class Visit>
void ForEachWithin(const DisplayList& list, const Bounds& window, const Visit& visit) {
    for (const ListPart& part : list.parts) {
        for (size_t run = 0; run < part.runs.size(); ++run) {
            if (!part.runs[run].Meets(window)) continue;
            const size_t end = std::min((run + 1) * ListPart::kRun, part.items.size());
            for (size_t i = run * ListPart::kRun; i < end; ++i) {
                if (part.items[i].bounds.Meets(window)) visit(part, part.items[i]);
            }
        }
    }
}

// Handle of the entity at a point: the one painted last of those that come as near as `tolerance`
// (drawing units) or whose area the point is in; 0 for none.
uint64_t EntityAt(const DisplayList& list, QPointF point, double tolerance);

}  // namespace painter
