// What a store keeps in memory: the file, its index, and the edits.
#pragma once

#include <map>
#include <unordered_map>
#include <unordered_set>

#include "platform/drawing/dxf/EditTable.h"
#include "platform/drawing/dxf/FileIndex.h"
#include "platform/drawing/dxf/HandleIndex.h"
#include "platform/drawing/dxf/SaveFile.h"
#include "platform/drawing/dxf/Store.h"

namespace dxf {

// Neighbours of an inserted record.
struct Links {
    RecordIndex previous, next;
};

// The inserted records behind one record of the file.
struct Chain {
    RecordIndex first, last;
};

struct Store::Impl {
    Buffer file;
    std::string path;                              // empty unless the store was read from a file
    std::map<std::string, FileIdentity> filesMet;  // read and written ones, as they were then
    FileIndex index;
    HandleIndex handles{index.records};
    std::string pageName;
    std::unique_ptr<TextCodec> codec;
    Version version = Version::R12;
    bool readOnly = false;
    bool neverSaved = false;  // a copy of work that its own file lacks
    RecordIndex fileCount = 0;
    uint64_t firstNewHandle = 1, nextHandle = 1;

    EditTable edits;
    uint32_t saves = 0;
    std::vector<Links> links;  // of the inserted records, in order of insertion
    std::unordered_map<RecordIndex, Chain> chains;
    std::unordered_map<RecordIndex, uint64_t> memoryHandles;

    bool recording = false;
    std::vector<RecordState> recorded;
    std::unordered_set<RecordIndex> recordedIndexes;

    // Set-up, after the file is there.
    void IndexFile(const Await& await);
    void EnterHandles();

    uint64_t FileEnd(RecordIndex number) const {
        return number + 1 < fileCount ? index.records[number + 1].offset : index.bodyEnd;
    }
    std::string_view FileBytes(RecordIndex number) const {
        const uint64_t begin = index.records[number].offset;
        return file.View().substr(begin, FileEnd(number) - begin);
    }
    std::string_view BytesOf(RecordIndex number) const;
    std::string Applied(RecordIndex number, const Overlay& overlay) const;
    GroupReader Groups(std::string_view bytes, uint64_t from = 0) const {
        return {index.format, index.wideCodes, bytes, from, index.lineEnd};
    }

    // Edits. A record's number is called so here, since the index is the file's.
    void RequireEditable() const;
    std::string_view LineEndAt(RecordIndex neighbour) const;
    std::string_view MissingLineEnd(std::string_view bytes, RecordIndex neighbour) const;
    void EndLastLine(std::string& bytes, RecordIndex neighbour) const;
    Record Describe(std::string_view bytes, Section section);
    void TakeDescription(RecordIndex number, const Record& description);
    void Link(RecordIndex inserted, RecordIndex where);
    bool IsEasyToPatch(RecordIndex number, const Group& group) const;
    bool IsOfFileOrPatched(RecordIndex number) const;
    Overlay Joined(RecordIndex number, const Overlay& patch, uint32_t at, uint32_t removed,
                   std::string_view value) const;
    void Patch(RecordIndex number, const Group& group, std::string_view value);
    Edit& EditToChange(RecordIndex number);
    void SetOverlay(RecordIndex number, Overlay overlay);
    void SetErasedFlag(RecordIndex number, bool erased);
    RecordState StateOf(RecordIndex number) const;
    RecordState StateBefore(RecordIndex number) const;
    void Remember(const RecordState& state);

    // Saving.
    void Meet(const std::string& nativePath);
    uint64_t NeededSeed() const;  // 0 when the file's is good
    std::string HeaderWithSeed(uint64_t seed) const;
    std::vector<RecordIndex> TouchedRecords() const;
};

// The file as it stands now, piece by piece. The store must not change meanwhile.
class Flattened {
  public:
    explicit Flattened(const Store::Impl& store);
    void WriteTo(const Sink& sink);

  private:
    void Add(std::string_view piece);
    void AddFileUpTo(uint64_t offset);
    void AddFileRecord(RecordIndex number);
    void AddChain(RecordIndex anchor);

    const Store::Impl& store;
    std::string header;  // with a new $HANDSEED; empty when it stays
    const Sink* sink = nullptr;
    uint64_t copied = 0;
    std::string_view last;  // what was written last
};

}  // namespace dxf
