// BlockIndex: the blocks of a drawing by name, and which entities stand in which.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/drawing/dxf/Store.h"
#include "platform/text/OdString.h"

class OdDbDatabaseImpl;

// Made on first use and kept; erased entities stay in the lists, whose users pass over them. What a
// thread that reads beside another asks for (see OdDbSecondThread) may be made for either.
class BlockIndex {
  public:
    using Contents = std::shared_ptr<const std::vector<dxf::RecordIndex>>;

    explicit BlockIndex(OdDbDatabaseImpl& database) : database(database) {}

    // Object indexes of all block table records: those of the table in table order, then blocks
    // that have none.
    const std::vector<uint32_t>& all();
    uint32_t modelSpace();
    bool isBlockRecord(uint32_t index);          // the view on that object is a block table record
    uint32_t find(std::u16string_view name);     // without regard to case; kNoRecord for none
    uint32_t findRaw(std::string_view rawName);  // as a reference holds it
    const OdString& nameOf(uint32_t index);  // "*Model_Space" for the model space without a name
    struct Definition {
        dxf::RecordIndex begin, end;  // BLOCK and ENDBLK; kNoRecord for a space that has none
    };
    Definition definition(uint32_t index);
    // A block was added to the drawing; entities were added to one.
    void blockAdded(uint32_t index, OdString name, Definition definition);
    void entitiesAdded(uint32_t index) { blocks.at(index).contents = nullptr; }
    // The entities of a block in file order, without those that belong to another entity.
    Contents contents(uint32_t index);

  private:
    struct Block {
        OdString name;
        dxf::RecordIndex begin = dxf::kNoRecord;  // kNoRecord: has no BLOCK
        dxf::RecordIndex end = dxf::kNoRecord;
        Contents contents;
    };
    enum class Space { Model, Paper, None };

    void build();
    void addRecord(uint32_t index, OdString name);
    uint32_t findStanding(const std::u16string& folded);
    void addDefinition(dxf::RecordIndex begin, dxf::RecordIndex end);
    void findSpaces();
    Space spaceOf(uint32_t index) const;
    Space spaceOfEntity(dxf::RecordIndex index) const;
    void collect(dxf::RecordIndex begin, dxf::RecordIndex end, Space space,
                 std::vector<dxf::RecordIndex>& entities) const;

    OdDbDatabaseImpl& database;
    std::recursive_mutex making;  // its functions call each other
    bool built = false;
    std::vector<uint32_t> order;
    std::unordered_map<uint32_t, Block> blocks;
    std::unordered_map<std::u16string, uint32_t> byName;  // folded
    std::unordered_map<std::string, uint32_t> byRawName;
    std::unordered_map<uint64_t, Space>
        spaceHandles;  // owners of entities in model and paper space
    uint32_t model = dxf::kNoRecord;
    uint32_t paper = dxf::kNoRecord;  // the paper space whose entities stand in ENTITIES
};
