// OdDbDatabaseImpl: what stands behind a drawing in memory. For the classes of this folder.
#pragma once

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/drawing/BlockIndex.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DictionaryCache.h"
#include "platform/drawing/DrawingStructure.h"
#include "platform/drawing/GePoint3d.h"
#include "platform/drawing/LayerIndex.h"
#include "platform/drawing/ViewTable.h"

// An object that the file has no record of. Its index lies above those of all records.
struct VirtualObject {
    enum class Kind { RootDictionary, BlockTable, LayerTable, RegAppTable, ModelSpace, Layer };
    Kind kind;
    OdString name;  // of a layer
    uint64_t handle;
    dxf::RecordIndex written = dxf::kNoRecord;  // the record that was made for it since
};

inline constexpr uint32_t kFirstVirtual = 0xF0000000;

class OdDbDatabaseImpl {
  public:
    OdDbDatabaseImpl(OdDbDatabase& database, std::unique_ptr<dxf::Store> store);
    ~OdDbDatabaseImpl();  // tells the views that they have no database any more

    // Views.
    OdDbObjectPtr open(uint32_t index, OdDb::OpenMode mode);
    void forget(OdDbObject& view);
    // A new object enters the drawing: `view` stands on the record from now on.
    void adopt(OdDbObject& view, dxf::RecordIndex index);

    // Objects by index.
    bool isErased(uint32_t index) const;
    OdDbHandle handleOf(uint32_t index) const;
    OdDbObjectId idOf(uint32_t index) const { return OdDbObjectId(&owner, index); }
    OdDbObjectId idOfRecord(dxf::RecordIndex index) const;  // null for kNoRecord
    OdDbObjectId idOfHandle(uint64_t handle) const;
    OdDbObjectId ownerOf(uint32_t index);
    dxf::RecordIndex recordOf(uint32_t index) const;  // kNoRecord for what has none
    const VirtualObject* virtualObject(uint32_t index) const;
    uint32_t addVirtual(VirtualObject::Kind kind, const OdString& name = OdString());

    // Changes. checkEditable raises eReadOnlyDrawing with the reason.
    void checkEditable() const;
    uint64_t newHandle();
    // A record of that type, with handle and owner, behind the last one of the OBJECTS section.
    // `body` writes the groups behind the owner.
    template <class Body>
    dxf::RecordIndex addObject(std::string_view type, uint64_t ownerHandle, const Body& body);
    template <class Body>
    dxf::RecordIndex addObjectBehind(dxf::RecordIndex where, std::string_view type,
                                     uint64_t ownerHandle, const Body& body);
    dxf::RecordIndex rootDictionaryForWrite();  // raises eNoDictionaries
    bool newRegApp(const OdString& application);
    // The last record of a table, which is made where the drawing has none.
    dxf::RecordIndex lastOf(DrawingStructure::Table& table, std::string_view name);
    // A block without entities; its object index. A drawing without a table of block records gets
    // the definition alone.
    struct NewBlock {
        OdString name;
        OdGePoint3d origin;
        uint64_t handle = 0;       // of its record; 0: a new one
        std::string recordGroups;  // of its record behind the name
    };
    uint32_t addBlock(const NewBlock& block);
    // An entity behind the last one of a block.
    dxf::RecordIndex addEntity(uint32_t block, std::string bytes);
    // Writes the flag and the SEQEND of a reference that is to have attributes.
    void announceAttributes(dxf::RecordIndex reference);
    bool writesHandles() const { return store.FileVersion() >= dxf::Version::R13; }
    bool writesOwners() const { return store.FileVersion() >= dxf::Version::R2000; }
    dxf::RecordIndex lastObject();              // the record that new objects go behind
    bool stands(dxf::RecordIndex index) const;  // a record that is there and not erased
    struct NewSection {
        dxf::RecordIndex begin, end;
    };
    NewSection addSection(dxf::RecordIndex before,
                          std::string_view name);  // an empty one behind it
    void assignMemoryHandle(dxf::RecordIndex index);
    void erase(uint32_t index);  // with what it owns, and out of the dictionary that holds it
    void eraseOwned(dxf::RecordIndex index);  // the same, the dictionary that holds it untouched
    void unerase(uint32_t index);
    void flush() { dictionaries.flushAll(); }  // before anybody looks at the store as a whole

    void startUndoRecord(const OdString& name);
    void endUndoRecord();
    void undo();
    void redo();

    struct UndoStep {
        OdString name;
        std::vector<dxf::RecordState> states;
    };

    OdDbDatabase& owner;
    std::unique_ptr<dxf::Store> records;
    dxf::Store& store;
    DrawingStructure structure;
    BlockIndex blocks;
    LayerIndex layers;
    DictionaryCache dictionaries;
    uint32_t rootDictionary, blockTable, layerTable, regAppTable;  // indexes of objects
    std::vector<UndoStep> undoSteps, redoSteps;
    int undoDepth = 0;

  private:
    void assignMemoryHandles();
    uint64_t nextMemoryHandle();
    OdDbObject* makeView(uint32_t index);
    OdDbObject* makeVirtualView(const VirtualObject& object);
    OdDbObject* makeRecordView(dxf::RecordIndex index);
    OdDbObject* makeTableView(dxf::RecordIndex index);
    OdDbObject* makeOtherView(dxf::RecordIndex index);
    dxf::RecordIndex makeObjectsSection();
    dxf::RecordIndex makeBlocksSection();
    dxf::RecordIndex addBlockRecord(const NewBlock& block, uint64_t handle);
    BlockIndex::Definition addDefinition(const NewBlock& block, uint64_t handle, uint64_t record);
    void eraseDefinition(uint32_t block);
    dxf::RecordIndex makeTable(DrawingStructure::Table& table, std::string_view name);
    void restore(std::vector<UndoStep>& from, std::vector<UndoStep>& to);
    void eraseRun(dxf::RecordIndex head, dxf::RecordType member);
    void attributeErased(dxf::RecordIndex index);
    void leaveDictionary(dxf::RecordIndex index);

    ViewTable views;
    std::vector<VirtualObject> virtuals;
    std::unordered_map<uint64_t, uint32_t> virtualHandles;
    uint64_t memoryHandle = 0;                             // the highest one given
    std::unordered_set<std::u16string> knownApplications;  // folded names
    OdString undoName;
};

#include "platform/drawing/NewObjects.h"
