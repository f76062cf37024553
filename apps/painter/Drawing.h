// A drawing as the painter reads it: its records with the tables and blocks that entities refer to.
#pragma once

#include <deque>
#include <optional>

#include "apps/painter/Tables.h"

namespace painter {

struct Drawing;

struct Block {
    dxf::RecordIndex begin = dxf::kNoRecord;  // the BLOCK
    Point3 base;
    bool read = false;
    std::vector<Shape> shapes;
};

// The block definitions by name. Their contents are read when they are first asked for.
class Blocks {
  public:
    explicit Blocks(const dxf::Store& store);

    std::optional<uint32_t> Find(std::string_view rawName) const;
    const Point3& BaseOf(uint32_t number) const { return blocks[number].base; }
    const std::vector<Shape>& ShapesOf(uint32_t number, Drawing& drawing);

  private:
    const dxf::Store& store;
    std::deque<Block> blocks;
    std::unordered_map<std::u16string, uint32_t> numbers;  // by folded name
    mutable std::unordered_map<std::string, std::optional<uint32_t>> numbersByRaw;
};

struct Drawing {
    Drawing(const dxf::Store& store, Fonts& fonts)
        : store(store), fonts(fonts), tables(store, fonts), blocks(store) {}

    const dxf::Store& store;
    Fonts& fonts;
    Tables tables;
    Blocks blocks;
};

}  // namespace painter
