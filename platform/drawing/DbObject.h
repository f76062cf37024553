// OdDbObject: a view on one object of a drawing.
#pragma once

#include <string_view>

#include "platform/drawing/DbObjectId.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/ResBuf.h"
#include "platform/drawing/dxf/Record.h"

class OdDbDatabaseImpl;

// For classes of which the database makes views.
#define ODDB_DECLARE_MEMBERS(Class) \
    ODRX_DECLARE_MEMBERS(Class);    \
                                    \
  protected:                        \
    Class() = default;              \
    friend class OdDbDatabaseImpl;  \
                                    \
  public:                           \
    static_assert(true, "takes the semicolon")

// A view holds no data of its own but what stands in the drawing; the database keeps one view per
// object while somebody points at it. An object opened twice is one view, whose mode is the wider
// of the two; the mode ends with the view. Functions that change the object raise
// OdError_NotOpenForWrite unless it is open for write, and OdError (eReadOnlyDrawing) in a drawing
// that cannot be edited. A view whose database has gone raises OdError (eNoDatabase).
class OdDbObject : public OdRxObject {
  public:
    ODDB_DECLARE_MEMBERS(OdDbObject);
    ~OdDbObject() override;

    OdDbObjectId objectId() const;  // null for an object that is in no database yet
    OdDbHandle getDbHandle() const { return objectId().getHandle(); }
    OdDbHandle handle() const { return getDbHandle(); }
    OdDbObjectId ownerId() const;
    OdDbDatabase* database() const;
    OdString dxfName() const;  // as the drawing names the type: "LINE", "INSERT", "XRECORD"

    bool isErased() const;
    // Takes the object out of the drawing, with what belongs to it alone (attributes of a block
    // reference, entries of a dictionary), or puts the object back. The dictionary that it stands
    // in forgets it. erase(false) brings back this one object and no entry.
    void erase(bool erasing = true);

    void upgradeOpen();
    void downgradeOpen();
    bool isReadEnabled() const { return true; }
    bool isWriteEnabled() const { return mode == OdDb::kForWrite; }
    // Both flags are taken as other systems give them; there is nothing to record beforehand here.
    void assertWriteEnabled(bool autoUndo = true, bool recordModified = true) const;

    // The data of an application, headed by its own 1001 entry; without a name those of all
    // applications. Null when there are none.
    OdResBufPtr xData(const OdString& application = OdString()) const;
    // The chain must begin with a 1001 entry. Replaces the data of the applications named in it and
    // of no others; an application with nothing behind its entry loses its data. An application
    // that is new to the object is registered where the drawing does not know it yet. Raises
    // OdError (eInvalidResBuf, eStringTooLong) with nothing changed. Strings may have 255 bytes;
    // longer ones that were read and not changed are kept.
    void setXData(const OdResBuf* chain);

    void addRef() override { ++references; }
    void release() override;
    long numRefs() const override { return references; }

  protected:
    OdDbDatabaseImpl& core() const;   // raises eNoDatabase
    dxf::RecordIndex record() const;  // raises eNotApplicable for what the file has no record of
    // The database when the object may be changed; raises otherwise.
    OdDbDatabaseImpl& editable() const;
    // The class's own groups for an object that enters a drawing; here raises eNotApplicable.
    virtual void writeNew(const OdDbDatabaseImpl& database, dxf::GroupWriter& writer) const;
    virtual std::string_view newRecordType() const;

  private:
    friend class OdDbDictionary;

    long references = 0;
    OdDbDatabaseImpl* owner = nullptr;
    uint32_t index = dxf::kNoRecord;
    OdDb::OpenMode mode = OdDb::kForWrite;  // of an object that is in no database yet
};
