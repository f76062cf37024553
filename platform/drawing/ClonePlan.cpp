// Finding out what a clone brings with it.
#include <algorithm>

#include "platform/drawing/Clone.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/Groups.h"
#include "platform/text/Conversion.h"

using dxf::kNoRecord;
using dxf::RecordIndex;
using dxf::RecordType;
using dxf::Section;

Clone::Clone(OdDbDatabaseImpl& from, OdDbDatabaseImpl& to)
    : from(from), to(to), copy(from.store, to.store) {}

uint64_t Clone::NewHandle() { return to.writesHandles() ? to.newHandle() : 0; }

void Clone::Plan(const std::vector<RecordIndex>& entities, uint64_t ownerHandle) {
    from.flush();
    to.checkEditable();
    if (from.writesHandles() != to.writesHandles()) {
        const auto name = [](const dxf::Store& store) {
            return OdString(store.VersionName().empty() ? "R12" : store.VersionName().c_str());
        };
        throw OdError(eNotApplicable, u"a block of a drawing of version " + name(from.store) +
                                          u" cannot be put into one of version " + name(to.store) +
                                          u"; save the source in the version of the project");
    }
    for (const RecordIndex entity : entities) TakeEntity(entity, ownerHandle, kGiven);
    for (size_t i = 0; i < pieces.size(); ++i) Follow(pieces[i].source);
}

void Clone::CheckType(RecordIndex source) const {
    const std::string_view type = from.store.TypeName(source);
    if (copy.HasType(type)) return;
    throw OdError(eNotApplicable,
                  OdString(u"object ") + OdDbHandle(from.store.At(source).handle).ascii() + u" (" +
                      groups::Decode(from.store, type) + u"): drawings of version " +
                      OdString(to.store.VersionName().c_str()) +
                      u" have no such entity; save the source in the version of the project");
}

void Clone::Take(RecordIndex source, Piece::Kind kind, uint64_t owner, size_t block) {
    if (!handles.try_emplace(source, 0).second) return;
    handles[source] = NewHandle();
    pieces.push_back({source, kind, owner, block});
}

// With its attributes or vertices, and what ends them.
void Clone::TakeEntity(RecordIndex head, uint64_t owner, size_t block) {
    if (Has(head)) return;
    CheckType(head);
    Take(head, Piece::Entity, owner, block);
    NeedClass(head);
    const RecordType type = from.store.At(head).type;
    const RecordType member = type == RecordType::Insert     ? RecordType::Attrib
                              : type == RecordType::Polyline ? RecordType::Vertex
                                                             : RecordType::Other;
    if (member == RecordType::Other) return;
    for (RecordIndex i = from.store.Next(head); i != kNoRecord; i = from.store.Next(i)) {
        const RecordType found = from.store.At(i).type;
        if (found != member && found != RecordType::Seqend) return;
        if (!from.isErased(i)) Take(i, Piece::Entity, handles[head], block);
        if (found == RecordType::Seqend) return;
    }
}

void Clone::TakeContents(uint32_t sourceBlock, size_t block) {
    for (const RecordIndex entity : *from.blocks.contents(sourceBlock)) {
        if (!from.isErased(entity)) TakeEntity(entity, newBlocks[block].handle, block);
    }
}

void Clone::Follow(RecordIndex source) {
    RoleReader reader(from.store, source);
    dxf::Group group;
    Role role;
    while (reader.Next(group, role)) {
        if (!copy.IsKnown(group, reader.Subclass(), reader.InEmbedded())) continue;
        if (IsPointer(role)) FollowPointer(role, group.AsHandle());
        if (IsSymbolName(role)) FollowName(role, group.value);
    }
}

// What belongs to a copied object is copied, and what it needs must be there.
void Clone::FollowPointer(Role role, uint64_t handle) {
    const RecordIndex target = from.store.FindHandle(handle);
    if (handle == 0 || target == kNoRecord || Has(target) || from.isErased(target)) return;
    const dxf::Record& record = from.store.At(target);
    const bool owned = role == Role::Owned || role == Role::Extension;
    if (owned && record.section == Section::Objects) {
        const RecordIndex owner = from.store.FindHandle(record.owner);
        if (owner != kNoRecord && Has(owner)) Take(target, Piece::Object, handles[owner]);
    }
    if (Within() || Has(target)) return;
    if (role == Role::Hard && record.section == Section::Objects) NeedObject(target);
    if ((role == Role::Hard || role == Role::DataHandle) && record.section == Section::Tables) {
        const Role kind = SymbolKindOf(from.store, target);
        if (kind != Role::Plain) NeedSymbol(target, kind, NameOfSymbol(from.store, target));
    }
}

void Clone::FollowName(Role role, std::string_view rawName) {
    const Role kind = SymbolKind(role);
    if (kind == Role::Block) {
        const uint32_t block = from.blocks.findRaw(rawName);
        if (block == kNoRecord || from.isErased(block)) return;
        // The picture of a dimension belongs to it alone.
        const bool picture = rawName.starts_with("*D") || rawName.starts_with("*d");
        if (Within() && !picture) return;
        NeedBlock(block);
        const auto renamed = newNames.find(block);
        if (renamed != newNames.end()) blockNames[std::string(rawName)] = renamed->second;
        return;
    }
    if (Within()) return;
    const std::u16string name = from.store.Codec().Decode(rawName);
    const uint32_t symbol = FindSymbol(from, kind, name);
    const RecordIndex record = symbol == kNoRecord ? kNoRecord : from.recordOf(symbol);
    if (record != kNoRecord && !Has(record)) NeedSymbol(record, kind, name);
    if (record == kNoRecord && kind == Role::Application) to.newRegApp(name);
}

// A named object: it stands in a dictionary below the root, under a name on each level.
void Clone::NeedObject(RecordIndex source) {
    std::vector<std::u16string> path;
    const auto isDictionary = [&](RecordIndex i) {
        return from.store.At(i).type == RecordType::Dictionary ||
               from.store.TypeName(i) == "ACDBDICTIONARYWDFLT";
    };
    const RecordIndex root = from.recordOf(from.rootDictionary);
    constexpr size_t kDeepest = 8;
    for (RecordIndex at = source; at != root;) {
        const uint64_t handle = from.store.At(at).handle;
        // Programs that forget the owner of a dictionary at least enter it in the root.
        const auto* entry = from.dictionaries.entries(root).findHandle(handle);
        RecordIndex owner = root;
        if (!entry) {
            owner = from.store.FindHandle(from.store.At(at).owner);
            if (owner == kNoRecord || path.size() == kDeepest || !isDictionary(owner)) return;
            entry = from.dictionaries.entries(owner).findHandle(handle);
        }
        if (!entry) return;
        path.insert(path.begin(), entry->name);
        at = owner;
    }
    if (!to.owner.hasDictionaries()) return;
    OdDbDictionaryPtr level = OdDbDictionary::cast(to.open(to.rootDictionary, OdDb::kForRead));
    for (size_t i = 0; i < path.size() && !level.isNull(); ++i) {
        const OdDbObjectId found = level->getAt(OdString(path[i]));
        if (i + 1 == path.size() && !found.isNull() && !found.isErased()) {
            handles[source] = found.getHandle();
            return;
        }
        level = OdDbDictionary::cast(found.openObject());
    }
    Take(source, Piece::Object, 0);  // its owner is known once the entry is made
    newEntries.push_back({std::move(path), handles[source]});
    NeedClass(source);
}

void Clone::NeedSymbol(RecordIndex source, Role kind, const std::u16string& name) {
    if (kind == Role::Block) return NeedBlock(source);
    const uint32_t there = FindSymbol(to, kind, name);
    if (there != kNoRecord) {
        handles[source] = to.handleOf(there);
        return;
    }
    Take(source, Piece::Symbol, 0);  // its owner is known once the table is there
}

void Clone::NeedBlock(uint32_t source) {
    const OdDbBlockTableRecordPtr record = from.open(source, OdDb::kForRead);
    if (Has(source) || record->isLayout()) return;
    const std::u16string name = record->getName().text();
    const bool anonymous = record->isAnonymous();
    const uint32_t there = anonymous ? kNoRecord : FindSymbol(to, Role::Block, name);
    if (there != kNoRecord) {
        handles[source] = to.handleOf(there);
        return;
    }
    const OdString newName = anonymous ? FreeAnonymousName(name) : OdString(name);
    handles[source] = NewHandle();
    newBlocks.push_back({source, newName, handles[source]});
    if (anonymous) newNames[source] = to.store.Codec().Encode(newName.text());
    const RecordIndex begin = from.blocks.definition(source).begin;
    if (begin != source && begin != kNoRecord) Follow(source);
    TakeContents(source, newBlocks.size() - 1);
}

// "*U12" for a "*U3": the letter tells what kind of block it is.
OdString Clone::FreeAnonymousName(const std::u16string& like) {
    const std::u16string letter = like.substr(0, 2);
    for (int number = 1;; ++number) {
        std::u16string name = letter + text::WideFromNarrow(std::to_string(number));
        const std::u16string folded = text::FoldCase(name);
        if (to.blocks.find(name) != kNoRecord ||
            std::ranges::find(givenNames, folded) != givenNames.end()) {
            continue;
        }
        givenNames.push_back(folded);
        return OdString(std::move(name));
    }
}

// Types that a program adds are declared in the section of classes.
void Clone::NeedClass(RecordIndex source) {
    const std::string_view type = from.store.TypeName(source);
    if (Within() || !knownTypes.insert(std::string(type)).second) return;
    const auto declares = [&](const dxf::Store& store, RecordIndex i) {
        if (store.At(i).type != RecordType::Class) return false;
        const auto name = groups::Find(store, i, 1);
        return name && name->value == type;
    };
    for (RecordIndex i = to.store.First(); i != kNoRecord; i = to.store.Next(i)) {
        if (to.store.At(i).section == Section::Tables) break;
        if (declares(to.store, i)) return;
    }
    for (RecordIndex i = from.store.First(); i != kNoRecord; i = from.store.Next(i)) {
        if (from.store.At(i).section == Section::Tables) break;
        if (!declares(from.store, i)) continue;
        if (std::ranges::find(newClasses, i) == newClasses.end()) newClasses.push_back(i);
        return;
    }
}
