// The block definitions of a drawing.
#include "apps/painter/Drawing.h"
#include "apps/painter/Entities.h"
#include "platform/text/Conversion.h"

namespace painter {

namespace {

class Collector : public ShapeSink {
  public:
    explicit Collector(std::vector<Shape>& shapes) : shapes(shapes) {}
    void Take(const Shape& shape) override { shapes.push_back(shape); }

  private:
    std::vector<Shape>& shapes;
};

}  // namespace

// All names, the spaces' too: a dimension or an insert may name anything.
Blocks::Blocks(const dxf::Store& store) : store(store) {
    Tags tags;
    for (auto i = store.First(); i != dxf::kNoRecord; i = store.Next(i)) {
        const dxf::Record& record = store.At(i);
        if (record.section > dxf::Section::Blocks) break;
        if (record.type != dxf::RecordType::Block || record.flags & dxf::kErased) continue;
        tags.Read(store, i);
        const auto number = static_cast<uint32_t>(blocks.size());
        numbers.try_emplace(text::FoldCase(store.Codec().Decode(tags.Raw(2))), number);
        blocks.push_back({i, tags.Point(10), false, {}});
    }
}

std::optional<uint32_t> Blocks::Find(std::string_view rawName) const {
    const auto [place, added] = numbersByRaw.try_emplace(std::string(rawName));
    if (added) {
        const auto found = numbers.find(text::FoldCase(store.Codec().Decode(rawName)));
        if (found != numbers.end()) place->second = found->second;
    }
    return place->second;
}

const std::vector<Shape>& Blocks::ShapesOf(uint32_t number, Drawing& drawing) {
    Block& block = blocks[number];
    if (block.read) return block.shapes;
    block.read = true;
    Collector collector(block.shapes);
    EntityReader reader(drawing, collector, true);
    bool behindReference = false;  // attributes are read with their reference
    for (auto i = store.Next(block.begin); i != dxf::kNoRecord; i = store.Next(i)) {
        const dxf::RecordType type = store.At(i).type;
        if (type == dxf::RecordType::Endblk || type == dxf::RecordType::Block ||
            type == dxf::RecordType::Endsec || type == dxf::RecordType::Eof) {
            break;
        }
        if (type == dxf::RecordType::Attrib && behindReference) continue;
        behindReference = type == dxf::RecordType::Insert;
        reader.Read(i);
    }
    return block.shapes;
}

}  // namespace painter
