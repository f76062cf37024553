// OdDbDatabase: a drawing in memory.
#pragma once

#include <memory>
#include <string>

#include "platform/drawing/DbObjectId.h"
#include "platform/drawing/dxf/Store.h"

class OdDbDatabase;
class OdDbDatabaseImpl;
class OdDbIdMapping;
class OdDbObjectIdArray;
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;

// Owns all objects; its end makes the views that are still held useless (see OdDbObject), and ids
// and iterators of it must not be used any more. One thread at a time; see OdDbSecondThread.
//
// Objects of the file that have no handle, and all but the first of those with one handle, have
// handles in memory, which are never written.
class OdDbDatabase : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdDbDatabase);

    // Raises OdError (eFileReadError) with what, where and why. "-" is standard input.
    static OdDbDatabasePtr readFile(const std::string& nativePath);
    static OdDbDatabasePtr fromStore(std::unique_ptr<dxf::Store> store);
    ~OdDbDatabase() override;

    // Format, version and code page stay those of the file that was read. Raises OdError
    // (eFileWriteError, eFileChanged) with the old file left as it was. force and verify as
    // dxf::Store::Save; an OdError of verify comes through as it is.
    void writeFile(const std::string& nativePath, bool force = false,
                   const dxf::Store::Verify& verify = {});
    std::string toBytes();  // what writeFile would write

    // The object of that handle, erased ones included; null when there is none. Handles cannot be
    // taken in advance: createIfNotFound true with an unknown handle raises OdError
    // (eNotApplicable).
    OdDbObjectId getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound = false);

    // Never null: what the file lacks is there in memory, empty.
    OdDbObjectId getNamedObjectsDictionaryId() const;
    OdDbObjectId getBlockTableId() const;
    OdDbObjectId getLayerTableId() const;
    OdDbObjectId getRegAppTableId() const;
    OdDbObjectId getModelSpaceId() const;

    // Adds the application to those that may have xdata; false when the drawing knows it already.
    bool newRegApp(const OdString& application);

    // Makes a block of the model space of another drawing, which stays as it is. The base point of
    // that drawing becomes the block's origin; layers, styles, line types and blocks that its
    // entities use come along unless this drawing has them by name. The source may be of another
    // format, code page or version; what this drawing's version has no place for raises OdError
    // (eNotApplicable) with nothing changed. Raises eDuplicateKey for a name that is taken.
    OdDbObjectId insert(const OdString& blockName, OdDbDatabase* source,
                        bool preserveSourceDatabase = true);
    // Copies entities, of this drawing or another one, into a block of this one, in their order and
    // with all that belongs to them. Handles inside the copies (owners, boundaries, extended data)
    // lead to the copies of what they led to. The mapping gets every object that was copied or
    // stands for one. The last argument is taken as others give it: handles are always translated
    // at once. Failures as insert.
    void deepCloneObjects(const OdDbObjectIdArray& objectIds, const OdDbObjectId& ownerId,
                          OdDbIdMapping& mapping, bool deferTranslation = false);

    dxf::Version version() const;
    const std::string& versionName() const;  // "AC1015"
    dxf::Format format() const;
    const std::string& codePageName() const;
    bool isReadOnly() const;       // can be read but not safely edited
    bool isModified() const;       // a save would differ from the file
    bool hasDictionaries() const;  // false before R13
    // Of a copy of work that was never saved: see dxf::Store::StandFor.
    void standFor(const std::string& nativePath, const std::optional<dxf::FileIdentity>& met);

    // Undo of whole commands. Between the two calls changes are recorded; a record within a record
    // belongs to the outer one, a record without a change is dropped, a new one ends all redo.
    void startUndoRecord(const OdString& name = OdString());
    void endUndoRecord();
    bool hasUndo() const;
    bool hasRedo() const;
    OdString undoName() const;  // of the record that undo() would take back, empty for none
    OdString redoName() const;
    void undo();  // without a record, or within one: raises OdError (eNotApplicable)
    void redo();

    // The records as they stand now, for reports on the file. Changes made here behind the
    // database's back are not allowed.
    const dxf::Store& store() const;

    OdDbDatabaseImpl& impl() const { return *core; }

    void addRef() override { ++references; }
    void release() override;
    long numRefs() const override { return references; }

  private:
    explicit OdDbDatabase(std::unique_ptr<dxf::Store> store);

    long references = 0;
    std::unique_ptr<OdDbDatabaseImpl> core;
};
