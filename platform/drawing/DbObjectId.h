// OdDbObjectId: which object of which database.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/drawing/DbHandle.h"
#include "platform/drawing/RxObject.h"

class OdDbDatabase;
class OdDbObject;
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

namespace OdDb {
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
}

// A value that stays the same while the database lives, also through undo and after the object was
// erased. It must not be used once the database is gone.
class OdDbObjectId {
  public:
    static const OdDbObjectId kNull;

    OdDbObjectId() = default;
    OdDbObjectId(OdDbDatabase* database, uint32_t index) : owner(database), index(index) {}

    bool isNull() const { return !owner; }
    bool isValid() const { return owner != nullptr; }  // true of erased objects too
    bool isErased() const;                             // true of the null id
    OdDbDatabase* database() const { return owner; }
    OdDbHandle getHandle() const;  // 0 of the null id
    uint32_t objectIndex() const { return index; }

    // Null for the null id, and for an erased object unless openErased is true.
    OdDbObjectPtr openObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
    // The same, but raises OdError (eNullObjectId, eWasErased) in place of giving null.
    OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead,
                                 bool openErased = false) const;

    friend bool operator==(const OdDbObjectId&, const OdDbObjectId&) = default;
    friend bool operator<(const OdDbObjectId& a, const OdDbObjectId& b) {
        return a.owner != b.owner ? std::less<>()(a.owner, b.owner) : a.index < b.index;
    }

  private:
    OdDbDatabase* owner = nullptr;
    uint32_t index = 0;
};

template <>
struct std::hash<OdDbObjectId> {
    size_t operator()(const OdDbObjectId& id) const noexcept {
        return std::hash<uint64_t>()(reinterpret_cast<uintptr_t>(id.database()) ^
                                     (uint64_t{id.objectIndex()} << 32));
    }
};

#include "platform/drawing/DbObject.h"
