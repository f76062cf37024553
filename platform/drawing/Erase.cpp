// Taking objects out of a drawing, with what belongs to them alone.
#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DimensionPicture.h"
#include "platform/drawing/Groups.h"

using dxf::kNoRecord;
using dxf::RecordIndex;
using dxf::RecordType;

void OdDbDatabaseImpl::erase(uint32_t index) {
    if (isErased(index)) return;
    leaveDictionary(index);
    eraseOwned(index);
    if (store.At(index).type == RecordType::Attrib) attributeErased(index);
}

void OdDbDatabaseImpl::unerase(uint32_t index) { store.SetErased(index, false); }

// The object with all that it owns. Every object is met once, so that dictionaries of a damaged
// file that own each other come to an end.
void OdDbDatabaseImpl::eraseOwned(RecordIndex first) {
    std::vector<RecordIndex> waiting{first};
    while (!waiting.empty()) {
        const RecordIndex index = waiting.back();
        waiting.pop_back();
        if (isErased(index)) continue;
        const dxf::Record& record = store.At(index);
        if (record.type == RecordType::Insert) eraseRun(index, RecordType::Attrib);
        if (record.type == RecordType::Polyline) eraseRun(index, RecordType::Vertex);
        if (const uint32_t picture = PictureOf(*this, index); picture != kNoRecord) {
            waiting.push_back(picture);
        }
        if (record.type == RecordType::Dictionary) {
            dictionaries.flush(index);
            for (const auto* entry : dictionaries.entries(index).standing(false)) {
                const RecordIndex owned = store.FindHandle(entry->handle);
                if (owned != kNoRecord && store.At(owned).owner == record.handle) {
                    waiting.push_back(owned);
                }
            }
        }
        const bool block =
            record.type == RecordType::BlockRecord || record.type == RecordType::Block;
        if (block && blocks.isBlockRecord(index)) eraseDefinition(index);
        store.SetErased(index, true);
    }
}

// The BLOCK, its entities and the ENDBLK.
void OdDbDatabaseImpl::eraseDefinition(uint32_t block) {
    const auto [begin, end] = blocks.definition(block);
    if (begin == kNoRecord) return;
    for (RecordIndex i = begin; i != kNoRecord; i = store.Next(i)) {
        if (!isErased(i)) store.SetErased(i, true);
        if (i == end) return;
    }
}

// The records of that type behind their head, up to and with their SEQEND.
void OdDbDatabaseImpl::eraseRun(RecordIndex head, RecordType member) {
    for (RecordIndex i = store.Next(head); i != kNoRecord; i = store.Next(i)) {
        const RecordType type = store.At(i).type;
        const bool erased = store.At(i).flags & dxf::kErased;
        if (type != member && type != RecordType::Seqend) return;
        if (!erased) store.SetErased(i, true);
        if (type == RecordType::Seqend) return;
    }
}

// With its last attribute a block reference loses the SEQEND and the flag 66 that announce them.
void OdDbDatabaseImpl::attributeErased(RecordIndex index) {
    RecordIndex head = index;
    while (head != kNoRecord && store.At(head).type == RecordType::Attrib) {
        head = store.Previous(head);
    }
    if (head == kNoRecord || store.At(head).type != RecordType::Insert) return;
    RecordIndex i = store.Next(head);
    for (; i != kNoRecord && store.At(i).type == RecordType::Attrib; i = store.Next(i)) {
        if (!(store.At(i).flags & dxf::kErased)) return;
    }
    if (i != kNoRecord && store.At(i).type == RecordType::Seqend) store.SetErased(i, true);
    if (const auto flag = groups::Find(store, head, 66)) {
        groups::Apply(store, head,
                      {{static_cast<uint32_t>(flag->begin), static_cast<uint32_t>(flag->end), {}}});
    }
}

void OdDbDatabaseImpl::leaveDictionary(RecordIndex index) {
    const uint64_t handle = store.At(index).handle;
    const RecordIndex dictionary = store.FindHandle(store.At(index).owner);
    if (dictionary == kNoRecord || store.At(dictionary).type != RecordType::Dictionary) return;
    DictionaryEntries& entries = dictionaries.entries(dictionary);
    if (const auto* entry = entries.findHandle(handle)) entries.remove(std::u16string(entry->name));
}
