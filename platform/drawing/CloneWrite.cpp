// Writing of the copies that a clone has planned.
#include "platform/drawing/Clone.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/NewObjects.h"

using dxf::kNoRecord;
using dxf::RecordIndex;

// The groups of one record as those of its copy.
class PieceWriter {
  public:
    PieceWriter(const Clone& clone, RecordIndex source, uint64_t owner, dxf::GroupWriter writer)
        : clone(clone), source(source), owner(owner), writer(std::move(writer)) {}

    std::string Run() {
        RoleReader reader(clone.from.store, source);
        dxf::Group group;
        Role role;
        while (reader.Next(group, role)) {
            if (clone.copy.IsKnown(group, reader.Subclass(), reader.InEmbedded())) {
                Take(group, role);
            }
        }
        PutOwner();
        return writer.Take();
    }

  private:
    void Take(const dxf::Group& group, Role role) {
        if (role == Role::Handle || role == Role::Owner) return;  // written behind the type
        if (role == Role::ControlBegin) {
            control = group.value;
            return;
        }
        if (role == Role::ControlEnd) {
            if (opened) clone.copy.Write(writer, group);
            opened = false;
            control = {};
            return;
        }
        if (role != Role::Type && role != Role::Reactor && role != Role::Extension &&
            control.empty()) {
            PutOwner();
        }
        if (role == Role::EntryName) {
            entryName = clone.copy.Text(group.value);
        } else if (IsPointer(role)) {
            TakePointer(group, role);
        } else {
            OpenControl();
            TakeValue(group, role);
        }
    }

    void TakeValue(const dxf::Group& group, Role role) {
        const auto renamed = role == Role::Block ? clone.blockNames.find(std::string(group.value))
                                                 : clone.blockNames.end();
        if (renamed != clone.blockNames.end()) {
            writer.String(group.code, renamed->second);
        } else {
            clone.copy.Write(writer, group);
        }
        if (role == Role::Type) PutHandle();
    }

    // A pointer to what was not copied stays within a drawing; in another one it leads nowhere.
    // The list of whom to tell, and what belongs to the original, are not the copy's.
    void TakePointer(const dxf::Group& group, Role role) {
        const RecordIndex target = clone.from.store.FindHandle(group.AsHandle());
        const auto known = target == kNoRecord ? clone.handles.end() : clone.handles.find(target);
        const bool mapped = known != clone.handles.end();
        if (!mapped && (role == Role::Reactor || role == Role::Extension)) return;
        if (!entryName.empty() && role == Role::Owned && !mapped) return entryName.clear();
        OpenControl();
        if (!entryName.empty() && role == Role::Owned) {
            writer.String(3, entryName);
            entryName.clear();
        }
        const bool stays = clone.Within() && role != Role::Owned;
        writer.Handle(group.code, mapped ? known->second : stays ? group.AsHandle() : 0);
    }

    void OpenControl() {
        if (control.empty() || opened) return;
        opened = true;
        writer.String(102, clone.copy.Text(control));
    }

    void PutHandle() {
        const uint64_t handle = clone.handles.at(source);
        const bool dimStyle = clone.from.store.At(source).type == dxf::RecordType::DimStyle;
        if (handle != 0) writer.Handle(dimStyle ? 105 : 5, handle);
    }
    void PutOwner() {
        const bool inEntities = clone.from.store.At(source).section == dxf::Section::Entities ||
                                clone.from.store.At(source).section == dxf::Section::Blocks;
        const bool wanted = inEntities ? clone.to.writesOwners() : clone.to.writesHandles();
        if (!ownerWritten && wanted && owner != 0) writer.Handle(330, owner);
        ownerWritten = true;
    }

    const Clone& clone;
    RecordIndex source;
    uint64_t owner;
    dxf::GroupWriter writer;
    std::string_view control;  // of the group of an application that is read; empty outside
    bool opened = false;       // and its beginning was written
    bool ownerWritten = false;
    std::string entryName;
};

std::string Clone::Bytes(const Piece& piece) const {
    return PieceWriter(*this, piece.source, piece.owner, to.store.NewWriter()).Run();
}

// What the record of a block says behind its name, without its layout.
std::string Clone::RecordGroups(const NewBlock& block) const {
    if (from.store.At(block.source).type != dxf::RecordType::BlockRecord) return {};
    dxf::GroupWriter writer = to.store.NewWriter();
    RoleReader reader(from.store, block.source);
    dxf::Group group;
    Role role;
    while (reader.Next(group, role)) {
        const bool kept = reader.Subclasses() == 2 && role == Role::Plain && group.code != 2 &&
                          group.code != 100 && group.code < 1000;
        if (kept && copy.IsKnown(group, reader.Subclass(), false)) copy.Write(writer, group);
    }
    return writer.Take();
}

// The dictionaries on the way are made first, so that their handles can be written.
void Clone::PutEntries() {
    for (const NewEntry& entry : newEntries) {
        OdDbDictionaryPtr level = to.open(to.rootDictionary, OdDb::kForWrite);
        for (size_t i = 0; i + 1 < entry.path.size(); ++i) {
            OdDbDictionaryPtr next = level->getAt(OdString(entry.path[i]), OdDb::kForWrite);
            if (next.isNull()) {
                next = OdDbDictionary::createObject();
                level->setAt(OdString(entry.path[i]), next);
            }
            level = next;
        }
        for (Piece& piece : pieces) {
            if (handles.at(piece.source) == entry.handle) piece.owner = level->getDbHandle();
        }
        const RecordIndex record = to.recordOf(level->objectId().objectIndex());
        to.dictionaries.entries(record).set(entry.path.back(), entry.handle);
    }
}

void Clone::Write(uint32_t ownerBlock) {
    PutEntries();
    for (Piece& piece : pieces) {
        if (piece.kind == Piece::Symbol) {
            piece.owner = TableHandle(to, SymbolKindOf(from.store, piece.source));
        }
        piece.bytes = Bytes(piece);
    }
    PutClasses();
    PutBlocks();
    PutPieces(ownerBlock);
}

void Clone::PutClasses() {
    for (const RecordIndex source : newClasses) {
        RecordIndex& end = to.structure.classesEnd;
        if (!to.stands(end)) {
            if (to.structure.headerEnd == kNoRecord)
                return;  // no place that programs would look at
            end = to.addSection(to.structure.headerEnd, "CLASSES").end;
        }
        dxf::GroupWriter writer = to.store.NewWriter();
        auto reader = from.store.Groups(source);
        for (dxf::Group group; reader.Next(group);) copy.Write(writer, group);
        to.store.InsertAfter(to.store.Previous(end), writer.Take());
    }
}

void Clone::PutBlocks() {
    for (NewBlock& block : newBlocks) {
        OdDbDatabaseImpl::NewBlock made{block.name, {}, block.handle, RecordGroups(block)};
        const RecordIndex begin = from.blocks.definition(block.source).begin;
        if (begin != kNoRecord) {
            const auto number = [&](int code) {
                const auto group = groups::Find(from.store, begin, code);
                return group ? group->AsDouble() : 0;
            };
            made.origin = {number(10), number(20), number(30)};
        }
        block.written = to.addBlock(made);
    }
}

void Clone::PutPieces(uint32_t ownerBlock) {
    for (Piece& piece : pieces) {
        if (piece.kind == Piece::Entity) {
            const uint32_t block =
                piece.block == kGiven ? ownerBlock : newBlocks[piece.block].written;
            piece.written = to.addEntity(block, std::move(piece.bytes));
        } else if (piece.kind == Piece::Symbol) {
            piece.written =
                AddSymbol(to, SymbolKindOf(from.store, piece.source),
                          OdString(NameOfSymbol(from.store, piece.source)), std::move(piece.bytes));
        } else {
            piece.written = to.store.InsertAfter(to.lastObject(), std::move(piece.bytes));
        }
    }
}

void Clone::Report(OdDbIdMapping& mapping) const {
    for (const Piece& piece : pieces) {
        mapping.assign({from.idOf(piece.source), to.idOf(piece.written)});
    }
    for (const NewBlock& block : newBlocks) {
        mapping.assign({from.idOf(block.source), to.idOf(block.written)});
    }
    for (const auto& [source, handle] : handles) {
        const OdDbObjectId there = to.idOfHandle(handle);
        if (mapping.valueOf(from.idOf(source)).isNull() && !there.isNull()) {
            mapping.assign({from.idOf(source), there});
        }
    }
}
