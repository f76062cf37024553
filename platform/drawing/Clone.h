// Clone: copies of entities with all that belongs to them and all they need, within a drawing or
// from one drawing to another.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbIdMapping.h"
#include "platform/drawing/GroupCopy.h"
#include "platform/drawing/Symbols.h"

// First everything that is to come is found out (Plan), then it is written. What cannot be copied
// raises OdError in between, with nothing changed.
//
// Within a drawing a copy goes on using what its original uses. In another drawing a layer, style,
// line type, block or named object of the same name that is there already serves; what is not there
// is copied too. Anonymous blocks are always copied, under a name of their own.
class Clone {
  public:
    Clone(OdDbDatabaseImpl& from, OdDbDatabaseImpl& to);

    // Entities that go into one block of the target, in this order, with their attributes and
    // vertices. The block is given by the handle of its record.
    void Plan(const std::vector<dxf::RecordIndex>& entities, uint64_t ownerHandle);
    // The block must be there by now.
    void Write(uint32_t ownerBlock);
    // Adds what was copied.
    void Report(OdDbIdMapping& mapping) const;

  private:
    // A record that is to be written.
    struct Piece {
        dxf::RecordIndex source;
        enum Kind { Entity, Symbol, Object } kind;
        uint64_t owner;         // handle, 0 for none
        size_t block = kGiven;  // of an entity: which of the new blocks it goes into
        std::string bytes = {};
        dxf::RecordIndex written = dxf::kNoRecord;
    };
    struct NewBlock {
        uint32_t source;
        OdString name;
        uint64_t handle;
        uint32_t written = dxf::kNoRecord;
    };
    struct NewEntry {  // of a dictionary of the target, for a named object
        std::vector<std::u16string> path;
        uint64_t handle;
    };
    static constexpr size_t kGiven = static_cast<size_t>(-1);

    // Planning.
    bool Within() const { return &from == &to; }
    bool Has(dxf::RecordIndex source) const { return handles.contains(source); }
    void Take(dxf::RecordIndex source, Piece::Kind kind, uint64_t owner, size_t block = kGiven);
    void TakeEntity(dxf::RecordIndex head, uint64_t owner, size_t block);
    void TakeContents(uint32_t sourceBlock, size_t block);
    void Follow(dxf::RecordIndex source);
    void FollowPointer(Role role, uint64_t handle);
    void FollowName(Role role, std::string_view rawName);
    void NeedObject(dxf::RecordIndex source);
    void NeedSymbol(dxf::RecordIndex source, Role kind, const std::u16string& name);
    void NeedBlock(uint32_t source);
    void NeedClass(dxf::RecordIndex source);
    OdString FreeAnonymousName(const std::u16string& like);
    uint64_t NewHandle();
    void CheckType(dxf::RecordIndex source) const;

    // Writing.
    std::string Bytes(const Piece& piece) const;
    std::string RecordGroups(const NewBlock& block) const;
    void PutEntries();
    void PutBlocks();
    void PutPieces(uint32_t ownerBlock);
    void PutClasses();

    friend class PieceWriter;

    OdDbDatabaseImpl& from;
    OdDbDatabaseImpl& to;
    GroupCopy copy;
    std::vector<Piece> pieces;
    std::vector<NewBlock> newBlocks;
    std::vector<NewEntry> newEntries;
    std::vector<dxf::RecordIndex> newClasses;
    // Record of the source to handle in the target; 0 where the target keeps no handles.
    std::unordered_map<dxf::RecordIndex, uint64_t> handles;
    std::unordered_map<uint32_t, std::string> newNames;       // of blocks, where they change
    std::unordered_map<std::string, std::string> blockNames;  // the same by the raw old name
    std::unordered_set<std::string> knownTypes;               // whose class is looked after
    std::vector<std::u16string> givenNames;                   // of anonymous blocks, folded
};
