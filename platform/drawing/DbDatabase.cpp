// A drawing: reading, saving, its chief objects, undo.
#include "platform/drawing/DbDatabase.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/text/Conversion.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDatabase, OdRxObject)

namespace {

OdString textOf(const dxf::Error& error) { return text::WideFromNarrow(error.what()); }

}  // namespace

OdDbDatabase::OdDbDatabase(std::unique_ptr<dxf::Store> store)
    : core(std::make_unique<OdDbDatabaseImpl>(*this, std::move(store))) {}

OdDbDatabase::~OdDbDatabase() = default;

void OdDbDatabase::release() {
    if (--references == 0) delete this;
}

OdDbDatabasePtr OdDbDatabase::readFile(const std::string& nativePath) {
    try {
        return fromStore(dxf::Store::Read(nativePath));
    } catch (const dxf::Error& error) {
        throw OdError(eFileReadError, textOf(error));
    }
}

OdDbDatabasePtr OdDbDatabase::fromStore(std::unique_ptr<dxf::Store> store) {
    return OdDbDatabasePtr(new OdDbDatabase(std::move(store)));
}

void OdDbDatabase::writeFile(const std::string& nativePath, bool force,
                             const dxf::Store::Verify& verify) {
    core->flush();
    try {
        core->store.Save(nativePath, force, verify);
        if (nativePath != "-") core->store.MarkSaved();
    } catch (const dxf::FileChanged& error) {
        throw OdError(eFileChanged, textOf(error));
    } catch (const dxf::Error& error) {
        throw OdError(eFileWriteError, textOf(error));
    }
}

std::string OdDbDatabase::toBytes() {
    core->flush();
    return core->store.ToBytes();
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound) {
    const OdDbObjectId id = core->idOfHandle(handle);
    if (id.isNull() && createIfNotFound) {
        throw OdError(eNotApplicable, OdString(u"the drawing has no object ") + handle.ascii() +
                                          u", and handles cannot be taken in advance");
    }
    return id;
}

OdDbObjectId OdDbDatabase::getNamedObjectsDictionaryId() const {
    return core->idOf(core->rootDictionary);
}
OdDbObjectId OdDbDatabase::getBlockTableId() const { return core->idOf(core->blockTable); }
OdDbObjectId OdDbDatabase::getLayerTableId() const { return core->idOf(core->layerTable); }
OdDbObjectId OdDbDatabase::getRegAppTableId() const { return core->idOf(core->regAppTable); }
OdDbObjectId OdDbDatabase::getModelSpaceId() const { return core->idOf(core->blocks.modelSpace()); }

bool OdDbDatabase::newRegApp(const OdString& application) { return core->newRegApp(application); }

dxf::Version OdDbDatabase::version() const { return core->store.FileVersion(); }
const std::string& OdDbDatabase::versionName() const { return core->store.VersionName(); }
dxf::Format OdDbDatabase::format() const { return core->store.FileFormat(); }
const std::string& OdDbDatabase::codePageName() const { return core->store.CodePageName(); }
bool OdDbDatabase::isReadOnly() const { return core->store.ReadOnly(); }

bool OdDbDatabase::isModified() const {
    core->flush();
    return core->store.Modified();
}

void OdDbDatabase::standFor(const std::string& nativePath,
                            const std::optional<dxf::FileIdentity>& met) {
    core->store.StandFor(nativePath, met);
}

bool OdDbDatabase::hasDictionaries() const {
    return version() >= dxf::Version::R13 || core->recordOf(core->rootDictionary) != dxf::kNoRecord;
}

void OdDbDatabase::startUndoRecord(const OdString& name) { core->startUndoRecord(name); }
void OdDbDatabase::endUndoRecord() { core->endUndoRecord(); }
bool OdDbDatabase::hasUndo() const { return !core->undoSteps.empty(); }
bool OdDbDatabase::hasRedo() const { return !core->redoSteps.empty(); }
OdString OdDbDatabase::undoName() const {
    return hasUndo() ? core->undoSteps.back().name : OdString();
}
OdString OdDbDatabase::redoName() const {
    return hasRedo() ? core->redoSteps.back().name : OdString();
}
void OdDbDatabase::undo() { core->undo(); }
void OdDbDatabase::redo() { core->redo(); }

const dxf::Store& OdDbDatabase::store() const {
    core->flush();
    return core->store;
}
