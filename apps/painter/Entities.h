// Reading entities: from the groups of a record to shapes.
#pragma once

#include <memory>
#include <span>

#include "apps/painter/Drawing.h"

namespace painter {

class EntityReader;

// What a reading function works on.
struct Entity {
    Drawing& drawing;
    ShapeSink& sink;
    dxf::RecordIndex record;
    const Tags& tags;
    Shape& shape;  // style and handle are set, the path is empty
    bool inBlock;
    EntityReader& reader;  // that is at work

    void Emit(ShapeKind kind) const {
        shape.kind = kind;
        sink.Take(shape);
    }
    // Emits the path and empties it; nothing for an empty one.
    void EmitPath(ShapeKind kind) const;
};

class EntityReader {
  public:
    // inBlock: the entities stand in a block definition, where attribute definitions do not show.
    EntityReader(Drawing& drawing, ShapeSink& sink, bool inBlock)
        : drawing(drawing), sink(&sink), inBlock(inBlock) {}

    // The shapes of the entity and of what belongs to it (vertices, attributes). Erased and
    // invisible ones and unknown types give none.
    void Read(dxf::RecordIndex record);

    // The reader for the records that belong to the one being read; one for all of them, since most
    // of an entity's memory can be used again.
    EntityReader& ForParts(ShapeSink& taker);

  private:
    Drawing& drawing;
    ShapeSink* sink;
    bool inBlock;
    Tags tags;
    Shape shape;
    std::unique_ptr<EntityReader> parts;
};

// The style that the groups tell; layer and all.
Style StyleOf(Drawing& drawing, dxf::RecordIndex record, const Tags& tags);

// One for each family of entities.
void ReadLine(const Entity& entity);
void ReadPoint(const Entity& entity);
void ReadEndless(const Entity& entity);
void ReadCircle(const Entity& entity);
void ReadArc(const Entity& entity);
void ReadEllipse(const Entity& entity);
void ReadSpline(const Entity& entity);
void ReadSolid(const Entity& entity);
void ReadFace(const Entity& entity);
void ReadLeader(const Entity& entity);
void ReadMultiLine(const Entity& entity);
void ReadWipeout(const Entity& entity);
void ReadImage(const Entity& entity);
void ReadLightPolyline(const Entity& entity);
void ReadPolyline(const Entity& entity);
void ReadHatch(const Entity& entity);
void ReadText(const Entity& entity);
void ReadAttribute(const Entity& entity);
void ReadAttributeDefinition(const Entity& entity);
void ReadMText(const Entity& entity);
void ReadMultiLeader(const Entity& entity);
void ReadInsert(const Entity& entity);
void ReadDimension(const Entity& entity);
void ReadTable(const Entity& entity);

}  // namespace painter
