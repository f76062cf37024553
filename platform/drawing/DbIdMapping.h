// OdDbIdMapping: which object became which when objects were cloned.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/drawing/DbObjectId.h"
#include "platform/drawing/OdError.h"

// Ids in the order of their coming. An index outside raises OdError_InvalidIndex.
class OdDbObjectIdArray {
  public:
    unsigned length() const { return static_cast<unsigned>(ids.size()); }
    unsigned size() const { return length(); }
    bool isEmpty() const { return ids.empty(); }
    void append(const OdDbObjectId& id) { ids.push_back(id); }
    const OdDbObjectId& at(unsigned index) const {
        if (index >= ids.size()) throw OdError_InvalidIndex();
        return ids[index];
    }
    const OdDbObjectId& operator[](unsigned index) const { return at(index); }
    auto begin() const { return ids.begin(); }
    auto end() const { return ids.end(); }

  private:
    std::vector<OdDbObjectId> ids;
};

struct OdDbIdPair {
    OdDbObjectId key;    // what was cloned
    OdDbObjectId value;  // what came of it
};

// Filled by deepCloneObjects and insert with every object that was copied or stands for one of the
// same name. Must not outlive either drawing.
class OdDbIdMapping : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdDbIdMapping);
    static OdSmartPtr<OdDbIdMapping> createObject();

    OdDbDatabase* destDb() const { return destination; }
    void setDestDb(OdDbDatabase* database) { destination = database; }

    OdDbObjectId valueOf(const OdDbObjectId& key) const;  // null for none
    void assign(const OdDbIdPair& pair);
    const std::vector<OdDbIdPair>& pairs() const { return all; }  // in the order of their coming

    void addRef() override { ++references; }
    void release() override {
        if (--references == 0) delete this;
    }
    long numRefs() const override { return references; }

  private:
    OdDbIdMapping() = default;

    long references = 0;
    OdDbDatabase* destination = nullptr;
    std::vector<OdDbIdPair> all;
    std::unordered_map<OdDbObjectId, size_t> byKey;
};
using OdDbIdMappingPtr = OdSmartPtr<OdDbIdMapping>;
