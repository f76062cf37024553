// The layers, line types and text styles of a drawing, and the header variables that painting
// needs.
#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "apps/painter/Fonts.h"
#include "apps/painter/Shape.h"
#include "apps/painter/Tags.h"

namespace painter {

struct Layer {
    std::u16string name;
    Colour colour = kForeground;
    LineType lineType = kContinuous;
    bool off = false;
    bool frozen = false;
};

// Dash, gap, dash, ... in drawing units, an even number of them; empty for a continuous line.
using DashPattern = std::vector<double>;

struct TextStyle {
    uint16_t font = 0;
    double height = 0;  // 0: each text has its own
    double width = 1;
    double oblique = 0;  // degrees
};

class Tables {
  public:
    Tables(const dxf::Store& store, Fonts& fonts);

    static constexpr uint32_t kLayerZero = 0;   // the number of layer "0"
    uint32_t LayerOf(dxf::RecordIndex entity);  // a layer that no table declares gets a number too
    const Layer& LayerAt(uint32_t number) const { return layers[number]; }

    LineType LineTypeOf(std::string_view raw) const;  // by layer for "", continuous when unknown
    const DashPattern& PatternAt(LineType number) const { return patterns[number]; }
    double LineTypeScale() const { return lineTypeScale; }

    // Of that name, else "Standard", else plain.
    const TextStyle& StyleOf(std::string_view raw) const {
        if (lastStyle && raw == lastStyleName) return *lastStyle;
        lastStyleName = raw;
        return *(lastStyle = &FindStyle(raw));
    }

  private:
    void ReadHeader(dxf::RecordIndex section);
    void ReadRecord(dxf::RecordIndex record);
    void ReadLineType(const Tags& tags);
    void ReadStyle(const Tags& tags);
    void ReadLayer(const Tags& tags);
    uint32_t AddLayer(const std::u16string& name);
    const TextStyle& FindStyle(std::string_view raw) const;
    std::u16string Key(std::string_view raw) const;  // decoded, case folded

    const dxf::Store& store;
    Fonts& fonts;
    std::deque<Layer> layers;                                   // which stay where they are
    std::unordered_map<std::u16string, uint32_t> layerNumbers;  // folded
    std::vector<uint32_t> layerOfSpelling;                      // by the store's number
    std::vector<DashPattern> patterns{{}};
    std::unordered_map<std::u16string, LineType> lineTypes;  // folded
    std::unordered_map<std::u16string, TextStyle> styles;    // folded
    TextStyle plain;
    // Neighbours mostly share their style.
    mutable std::string lastStyleName;
    mutable const TextStyle* lastStyle = nullptr;
    double lineTypeScale = 1;
};

}  // namespace painter
