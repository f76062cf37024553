// LayerIndex: the layers of a drawing, and the entities of a space by layer.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/drawing/BlockIndex.h"

// Made on first use and kept; erased layers and entities stay in the lists.
class LayerIndex {
  public:
    explicit LayerIndex(OdDbDatabaseImpl& database) : database(database) {}

    const std::vector<uint32_t>& all();  // object indexes: the declared ones, then the used ones
    uint32_t find(const std::u16string& name);  // without regard to case; kNoRecord for none
    const OdString& nameOf(uint32_t index);
    uint32_t layerOf(dxf::RecordIndex entity);  // object index; of layer "0" without a layer group
    // A declared layer was added to the drawing; entities were added to a block.
    void layerAdded(uint32_t index, const OdString& name);
    void entitiesAdded(uint32_t block) { spaces.erase(block); }
    // The entities of a block on all layers of exactly that name.
    const std::vector<dxf::RecordIndex>& entities(uint32_t block, const OdString& layer);

  private:
    using ByName = std::unordered_map<std::u16string, std::vector<dxf::RecordIndex>>;

    void build();
    void add(uint32_t index, OdString name);
    void addUsed();
    uint32_t resolve(uint32_t interned);
    uint32_t findOrAdd(const std::u16string& name);

    OdDbDatabaseImpl& database;
    bool built = false;
    std::vector<uint32_t> order;
    std::unordered_map<uint32_t, OdString> names;
    std::unordered_map<std::u16string, uint32_t> byName;  // folded
    std::vector<uint32_t> byInterned;                     // kNoRecord: not looked up yet
    std::unordered_map<uint32_t, ByName> spaces;
};
