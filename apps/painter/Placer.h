// From shapes to items: blocks are placed, layers, colours and line types settled.
#pragma once

#include <map>
#include <unordered_map>

#include "apps/painter/DisplayList.h"
#include "apps/painter/Drawing.h"

namespace painter {

// A part of a display list as one thread makes it: its items go by numbers of their own for
// colours, dashes and fonts.
struct BuiltPart {
    ListPart part;
    std::vector<Colour> colours;
    std::vector<std::vector<double>> dashes{{}};
    Bounds extents;
    bool cut = false;
    size_t placed = 0;  // shapes met, painted or not
};

// Makes the items of one part. Up to `limit` shapes are placed.
class Placer : public ShapeSink {
  public:
    Placer(Drawing& drawing, BuiltPart& built, size_t limit)
        : drawing(drawing), built(built), part(built.part), limit(limit) {}

    void Take(const Shape& shape) override;
    bool IsFull() const { return built.cut; }

  private:
    struct Frame;

    void Place(const Shape& shape, const Frame& frame);
    void PlaceReference(const Shape& shape, const Frame& frame, const Layer& layer);
    void PlaceContents(const std::vector<Shape>& shapes, const Frame& frame);
    void PlaceText(const Shape& shape, const Frame& frame, Item item);
    void PlacePath(const Shape& shape, const Frame& frame, Item item);
    bool AddPoints(const std::vector<Point3>& points, const Frame& frame, Item& item);
    void Finish(const Item& item, bool endless = false);
    bool Count();

    static bool IsWithin(const Frame& frame, uint32_t block);
    const Layer& LayerOf(const Style& style, const Frame& frame) const;
    Colour ColourOf(const Style& style, const Frame& frame, const Layer& layer) const;
    LineType LineTypeOf(const Style& style, const Frame& frame, const Layer& layer) const;
    uint16_t ColourNumber(Colour colour);
    uint16_t DashNumber(LineType lineType, float scale);

    Drawing& drawing;
    BuiltPart& built;
    ListPart& part;
    size_t limit;
    std::unordered_map<Colour, uint16_t> colourNumbers;
    std::map<std::pair<LineType, float>, uint16_t> dashNumbers;
    std::pair<Colour, uint16_t> lastColour{kByBlock, 0};
};

}  // namespace painter
