// Shapes: what entities are made of, before blocks are placed and colours are settled.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/painter/Geometry.h"

namespace painter {

// 0xFFRRGGBB, or one of those below.
using Colour = uint32_t;
inline constexpr Colour kForeground = 0;  // black or white, after the background
inline constexpr Colour kBackground = 1;
inline constexpr Colour kByLayer = 2;
inline constexpr Colour kByBlock = 3;

// The number of a line type in Tables, or one of those below.
using LineType = uint16_t;
inline constexpr LineType kContinuous = 0;
inline constexpr LineType kLineTypeByLayer = 0xFFFF;
inline constexpr LineType kLineTypeByBlock = 0xFFFE;

struct Style {
    uint32_t layer = 0;  // number of the layer in Tables
    Colour colour = kByLayer;
    LineType lineType = kLineTypeByLayer;
    float lineTypeScale = 1;
};

enum class Verb : uint8_t { Move, Line, Curve };  // Curve: two control points and the end

struct Path {
    std::vector<Point3> points;
    std::vector<Verb> verbs;

    void Clear() {
        points.clear();
        verbs.clear();
    }
    void MoveTo(const Point3& point) { Add(Verb::Move, point); }
    void LineTo(const Point3& point) { Add(points.empty() ? Verb::Move : Verb::Line, point); }
    void CurveTo(const Point3& a, const Point3& b, const Point3& end) {
        points.push_back(a);
        points.push_back(b);
        Add(Verb::Curve, end);
    }
    void Add(Verb verb, const Point3& point) {
        verbs.push_back(verb);
        points.push_back(point);
    }
};

// A stretch of one line in one font. Its own coordinates: the baseline begins at the origin and
// goes along x, lengths are in units of the font's em.
struct Text {
    Matrix placement;
    std::u16string characters;
    uint16_t font = 0;
    double advance = 0;   // where it ends
    double tracking = 1;  // factor of the distance from letter to letter
};

enum class ShapeKind : uint8_t {
    Stroke,   // a line of no width
    Wide,     // a line of `width`
    Fill,     // odd-even
    Dot,      // one point
    Endless,  // a line from the first point in the direction of the second, both ways or one
    Text,
    Reference  // another block
};

// Copies of a reference in rows and columns.
struct Array {
    int columns = 1, rows = 1;
    Point3 columnStep, rowStep;
};

struct Shape {
    ShapeKind kind = ShapeKind::Stroke;
    Style style;
    uint64_t handle = 0;
    double width = 0;
    Path path;
    Text text;
    uint32_t block = 0;  // number of the block in Blocks
    Matrix placement;    // of the block
    // Whether a layer that is off hides only what takes its layer from the reference; all of it
    // otherwise, as of a dimension.
    bool showsOtherLayers = false;
    Array array;
};

// Who takes the shapes of entities as they are read. The shape is the reader's own and is used
// again for the next one.
class ShapeSink {
  public:
    virtual ~ShapeSink() = default;
    virtual void Take(const Shape& shape) = 0;
};

}  // namespace painter
