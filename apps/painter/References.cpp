// Block references with their attributes, dimensions and tables: entities that show a block.
#include <algorithm>

#include "apps/painter/Curves.h"
#include "apps/painter/Entities.h"

namespace painter {

namespace {

// A factor of 0 is read as 1, as CAD programs do.
double ScaleOf(const Tags& tags, int code) {
    const double scale = tags.Real(code, 1);
    return scale == 0 ? 1 : scale;
}

// Shows the block that group 2 names, its origin at the origin of `place`.
void EmitReference(const Entity& entity, const Matrix& place, const Array& array) {
    const auto block = entity.drawing.blocks.Find(entity.tags.Raw(2));
    if (!block) return;
    Shape& shape = entity.shape;
    shape.block = *block;
    shape.placement = place;
    shape.placement.origin = place.Map(entity.drawing.blocks.BaseOf(*block) * -1);
    shape.array = array;
    shape.showsOtherLayers = entity.drawing.store.At(entity.record).type == dxf::RecordType::Insert;
    entity.Emit(ShapeKind::Reference);
}

Array ArrayOf(const Tags& tags, const Matrix& turned) {
    Array array;
    array.columns = std::clamp(tags.Int(70, 1), 1, 32767);
    array.rows = std::clamp(tags.Int(71, 1), 1, 32767);
    array.columnStep = turned.x * tags.Real(44);
    array.rowStep = turned.y * tags.Real(45);
    return array;
}

// Every copy of a reference has the attributes; they stand where the first one has them.
class Copies : public ShapeSink {
  public:
    Copies(ShapeSink& sink, const Array& array) : sink(sink), array(array) {}

    void Take(const Shape& shape) override {
        constexpr int kMost = 1000;
        int left = kMost;
        for (int row = 0; row < array.rows; ++row) {
            for (int column = 0; column < array.columns && left > 0; ++column, --left) {
                Shape copy = shape;
                const Matrix move = Translation(array.columnStep * column + array.rowStep * row);
                Transform(copy.path, move);
                copy.text.placement = move * copy.text.placement;
                sink.Take(copy);
            }
        }
    }

  private:
    ShapeSink& sink;
    const Array& array;
};

// The attributes are the records behind the reference.
void ReadAttributes(const Entity& entity, const Array& array) {
    const dxf::Store& store = entity.drawing.store;
    Copies copies(entity.sink, array);
    const bool one = array.rows == 1 && array.columns == 1;
    EntityReader& reader = entity.reader.ForParts(one ? entity.sink : copies);
    for (auto i = store.Next(entity.record); i != dxf::kNoRecord; i = store.Next(i)) {
        if (store.At(i).type != dxf::RecordType::Attrib) break;
        reader.Read(i);
    }
}

}  // namespace

void ReadInsert(const Entity& entity) {
    const Tags& tags = entity.tags;
    Matrix turned = Rotation(Radians(tags.Real(50)));
    turned.origin = tags.Point(10);
    if (tags.HasExtrusion()) turned = ExtrusionMatrix(tags.Extrusion()) * turned;
    const Matrix place{turned.x * ScaleOf(tags, 41), turned.y * ScaleOf(tags, 42),
                       turned.z * ScaleOf(tags, 43), turned.origin};
    const Array array = ArrayOf(tags, turned);
    EmitReference(entity, place, array);
    ReadAttributes(entity, array);
}

// The block of a dimension holds its picture in the coordinates of the drawing.
void ReadDimension(const Entity& entity) { EmitReference(entity, Matrix(), {}); }

void ReadTable(const Entity& entity) {
    Matrix place = Translation(entity.tags.Point(10));
    const Point3 direction = entity.tags.Point(11);
    place = place * Rotation(std::atan2(direction.y, direction.x));
    EmitReference(entity, place, {});
}

}  // namespace painter
