// A drawing in memory: its objects by index, their handles, undo.
#include "platform/drawing/DatabaseImpl.h"

#include "platform/drawing/SecondThread.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

OdDbDatabaseImpl::OdDbDatabaseImpl(OdDbDatabase& database, std::unique_ptr<dxf::Store> read)
    : owner(database),
      records(std::move(read)),
      store(*records),
      structure(store),
      blocks(*this),
      layers(*this),
      dictionaries(store),
      memoryHandle(structure.highestHandle) {
    assignMemoryHandles();
    const auto orVirtual = [this](RecordIndex record, VirtualObject::Kind kind) {
        return record != kNoRecord ? record : addVirtual(kind);
    };
    rootDictionary = orVirtual(structure.rootDictionary, VirtualObject::Kind::RootDictionary);
    blockTable = orVirtual(structure.blockRecords.table, VirtualObject::Kind::BlockTable);
    layerTable = orVirtual(structure.layers.table, VirtualObject::Kind::LayerTable);
    regAppTable = orVirtual(structure.applications.table, VirtualObject::Kind::RegAppTable);
}

OdDbDatabaseImpl::~OdDbDatabaseImpl() {
    views.ForEach([](OdDbObject* view) { view->owner = nullptr; });
}

void OdDbDatabaseImpl::assignMemoryHandles() {
    for (const RecordIndex record : structure.withoutHandle) {
        store.AssignMemoryHandle(record, nextMemoryHandle());
    }
}

uint64_t OdDbDatabaseImpl::nextMemoryHandle() {
    do {
        ++memoryHandle;
    } while (memoryHandle == 0 || store.FindHandle(memoryHandle) != kNoRecord ||
             virtualHandles.contains(memoryHandle));
    return memoryHandle;
}

uint32_t OdDbDatabaseImpl::addVirtual(VirtualObject::Kind kind, const OdString& name) {
    const auto index = static_cast<uint32_t>(kFirstVirtual + virtuals.size());
    const uint64_t handle = nextMemoryHandle();
    virtuals.push_back({kind, name, handle});
    virtualHandles.emplace(handle, index);
    return index;
}

const VirtualObject* OdDbDatabaseImpl::virtualObject(uint32_t index) const {
    return index >= kFirstVirtual ? &virtuals.at(index - kFirstVirtual) : nullptr;
}

// The record that was made for an object in memory counts while no undo has taken it back.
RecordIndex OdDbDatabaseImpl::recordOf(uint32_t index) const {
    const VirtualObject* object = virtualObject(index);
    if (!object) return index;
    const RecordIndex written = object->written;
    const bool stands = written != kNoRecord && !(store.At(written).flags & dxf::kErased);
    return stands ? written : kNoRecord;
}

bool OdDbDatabaseImpl::isErased(uint32_t index) const {
    return !virtualObject(index) && (store.At(index).flags & dxf::kErased);
}

OdDbHandle OdDbDatabaseImpl::handleOf(uint32_t index) const {
    const RecordIndex record = recordOf(index);
    return record != kNoRecord ? store.At(record).handle : virtualObject(index)->handle;
}

OdDbObjectId OdDbDatabaseImpl::idOfRecord(RecordIndex index) const {
    if (index == kNoRecord) return OdDbObjectId();
    if (index == recordOf(rootDictionary)) return idOf(rootDictionary);
    if (index == recordOf(regAppTable)) return idOf(regAppTable);
    return idOf(index);
}

OdDbObjectId OdDbDatabaseImpl::idOfHandle(uint64_t handle) const {
    if (handle == 0) return OdDbObjectId();
    const RecordIndex record = store.FindHandle(handle);
    if (record != kNoRecord) return idOfRecord(record);
    const auto found = virtualHandles.find(handle);
    return found == virtualHandles.end() ? OdDbObjectId() : idOf(found->second);
}

OdDbObjectId OdDbDatabaseImpl::ownerOf(uint32_t index) {
    const RecordIndex record = recordOf(index);
    if (record == kNoRecord) return OdDbObjectId();
    const OdDbObjectId named = idOfHandle(store.At(record).owner);
    if (!named.isNull() || store.At(record).section != dxf::Section::Entities) return named;
    return store.At(record).flags & dxf::kPaperSpace ? named : idOf(blocks.modelSpace());
}

void OdDbDatabaseImpl::forget(OdDbObject& view) {
    OdDbSecondThread::viewsOr(views).Erase(view.index);
    if (!virtualObject(view.index)) dictionaries.leave(view.index);
}

void OdDbDatabaseImpl::adopt(OdDbObject& view, RecordIndex index) {
    view.owner = this;
    view.index = index;
    views[index] = &view;
}

OdDbObjectPtr OdDbDatabaseImpl::open(uint32_t index, OdDb::OpenMode mode) {
    ViewTable& opened = OdDbSecondThread::viewsOr(views);
    OdDbObjectPtr view = opened.Find(index);
    if (view.isNull()) {
        view = makeView(index);
        view->owner = this;
        view->index = index;
        view->mode = OdDb::kForRead;
        opened[index] = view;
    }
    if (mode == OdDb::kForWrite) view->mode = OdDb::kForWrite;
    return view;
}

void OdDbDatabaseImpl::checkEditable() const {
    if (!store.ReadOnly()) return;
    std::string reason;
    for (const dxf::Finding& finding : store.Findings()) {
        if (finding.severity == dxf::Finding::Severity::ReadOnly && reason.empty()) {
            reason = finding.text;
        }
    }
    throw OdError(eReadOnlyDrawing, OdError(eReadOnlyDrawing).description() + u": " +
                                        OdString(text::WideFromNarrow(reason)));
}

void OdDbDatabaseImpl::startUndoRecord(const OdString& name) {
    if (undoDepth == 0) {
        flush();
        undoName = name;
        store.BeginRecording();
    }
    ++undoDepth;
}

void OdDbDatabaseImpl::endUndoRecord() {
    if (undoDepth == 0) throw OdError(eNotApplicable, u"no undo record has been started");
    if (--undoDepth > 0) return;
    std::exception_ptr failure;
    try {
        flush();
    } catch (...) {
        failure = std::current_exception();
    }
    if (auto states = store.EndRecording(); !states.empty()) {
        undoSteps.push_back({undoName, std::move(states)});
        redoSteps.clear();
    }
    if (failure) std::rethrow_exception(failure);
}

void OdDbDatabaseImpl::undo() { restore(undoSteps, redoSteps); }
void OdDbDatabaseImpl::redo() { restore(redoSteps, undoSteps); }

void OdDbDatabaseImpl::restore(std::vector<UndoStep>& from, std::vector<UndoStep>& to) {
    if (undoDepth > 0) throw OdError(eNotApplicable, u"a command is still running");
    if (from.empty()) throw OdError(eNotApplicable, u"there is nothing to undo or redo");
    flush();
    UndoStep step = std::move(from.back());
    from.pop_back();
    for (const dxf::RecordState& state : step.states) dictionaries.forget(state.index);
    knownApplications.clear();
    to.push_back({step.name, store.Restore(step.states)});
}
