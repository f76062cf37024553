// Records that are added to a drawing: objects, the sections and tables they need, applications.
#include "platform/drawing/NewObjects.h"

#include "platform/drawing/DbSymbolTable.h"
#include "platform/drawing/Groups.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

uint64_t OdDbDatabaseImpl::newHandle() {
    uint64_t handle;
    do {
        handle = store.NewHandle();
    } while (store.FindHandle(handle) != kNoRecord || virtualHandles.contains(handle));
    return handle;
}

void OdDbDatabaseImpl::assignMemoryHandle(RecordIndex index) {
    store.AssignMemoryHandle(index, nextMemoryHandle());
}

RecordIndex OdDbDatabaseImpl::lastObject() {
    if (!stands(structure.objectsEnd)) structure.objectsEnd = makeObjectsSection();
    return store.Previous(structure.objectsEnd);
}

RecordIndex OdDbDatabaseImpl::makeObjectsSection() {
    RecordIndex before = structure.entitiesEnd;
    if (!stands(before)) before = structure.lastSectionEnd;
    if (!stands(before)) {
        throw OdError(eNotApplicable,
                      u"the drawing has no complete section that a new one could follow");
    }
    const NewSection section = addSection(before, "OBJECTS");
    structure.objectsBegin = section.begin;
    return section.end;
}

bool OdDbDatabaseImpl::stands(RecordIndex index) const {
    return index != kNoRecord && !(store.At(index).flags & dxf::kErased);
}

OdDbDatabaseImpl::NewSection OdDbDatabaseImpl::addSection(RecordIndex before,
                                                          std::string_view name) {
    dxf::GroupWriter writer = store.NewWriter(before);
    const RecordIndex begin =
        store.InsertAfter(before, writer.String(0, "SECTION").String(2, name).Take());
    return {begin, store.InsertAfter(begin, store.NewWriter(before).String(0, "ENDSEC").Take())};
}

RecordIndex OdDbDatabaseImpl::rootDictionaryForWrite() {
    checkEditable();
    if (!owner.hasDictionaries()) throw OdError(eNoDictionaries);
    const RecordIndex present = recordOf(rootDictionary);
    if (present != kNoRecord) return present;
    lastObject();  // makes the section where there is none
    // Readers take the first object of the section for the root.
    const RecordIndex root =
        addObjectBehind(structure.objectsBegin, "DICTIONARY", 0,
                        [this](dxf::GroupWriter& writer) { WriteNewDictionary(store, writer); });
    virtuals[rootDictionary - kFirstVirtual].written = root;
    return root;
}

bool OdDbDatabaseImpl::newRegApp(const OdString& application) {
    std::u16string folded = text::FoldCase(application.text());
    if (knownApplications.contains(folded)) return false;
    const OdDbSymbolTablePtr table = open(regAppTable, OdDb::kForRead);
    if (table->has(application)) {
        knownApplications.insert(std::move(folded));
        return false;
    }
    checkEditable();
    const RecordIndex last = lastOf(structure.applications, "APPID");
    dxf::GroupWriter writer = store.NewWriter(last);
    writer.String(0, "APPID");
    if (writesHandles()) {
        writer.Handle(5, newHandle()).Handle(330, handleOf(regAppTable));
        writer.String(100, "AcDbSymbolTableRecord").String(100, "AcDbRegAppTableRecord");
    }
    writer.String(2, store.Codec().Encode(application.text())).Int(70, 0);
    const RecordIndex added = store.InsertAfter(last, writer.Take());
    if (!writesHandles()) assignMemoryHandle(added);
    knownApplications.insert(std::move(folded));
    return true;
}

RecordIndex OdDbDatabaseImpl::lastOf(DrawingStructure::Table& table, std::string_view name) {
    if (!stands(table.end)) table.end = makeTable(table, name);
    return store.Previous(table.end);
}

// In the TABLES section, or in one made for it.
RecordIndex OdDbDatabaseImpl::makeTable(DrawingStructure::Table& table, std::string_view name) {
    RecordIndex before = stands(structure.tablesEnd) ? store.Previous(structure.tablesEnd)
                                                     : structure.lastSectionEnd;
    if (!stands(before)) {
        throw OdError(eNotApplicable,
                      u"the drawing has no complete section that its tables could follow");
    }
    if (before == structure.lastSectionEnd) before = addSection(before, "TABLES").begin;
    dxf::GroupWriter writer = store.NewWriter(before);
    writer.String(0, "TABLE").String(2, name);
    if (writesHandles()) {
        writer.Handle(5, newHandle()).Handle(330, 0).String(100, "AcDbSymbolTable");
    }
    table.table = store.InsertAfter(before, writer.Int(70, 1).Take());
    if (&table == &structure.applications && virtualObject(regAppTable)) {
        virtuals[regAppTable - kFirstVirtual].written = table.table;
    }
    return store.InsertAfter(table.table, store.NewWriter(before).String(0, "ENDTAB").Take());
}
