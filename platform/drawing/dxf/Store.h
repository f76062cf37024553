// A DXF file as a sequence of records, kept byte for byte: one pass indexes it, an edit is an
// overlay on one record, saving writes the untouched ranges and the overlays.
//
// A record is a 0-group and all groups up to the next 0-group: SECTION (the HEADER section's record
// holds all its variables), TABLE, LAYER, BLOCK, TEXT, SEQEND, ENDSEC, EOF. Bytes before the first
// 0-group and behind the EOF record belong to no record and are always kept.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Finding.h"
#include "platform/drawing/dxf/Group.h"
#include "platform/drawing/dxf/Overlay.h"
#include "platform/drawing/dxf/Record.h"
#include "platform/drawing/dxf/SaveFile.h"
#include "platform/drawing/dxf/TextCodec.h"

namespace dxf {

// The state of one record before a change, as Undo keeps it.
struct RecordState {
    RecordIndex index;
    Overlay overlay;
    bool erased;
    bool absent;  // the record did not exist yet
};

class Store {
  public:
    // Reads the whole file into memory; "-" is standard input. Throws dxf::Error with what, where
    // and why for a file that is missing, empty, no DXF, truncated inside a group, or beyond the
    // limits.
    static std::unique_ptr<Store> Read(const std::string& nativePath);
    static std::unique_ptr<Store> Parse(std::string bytes);  // the same for bytes in memory
    ~Store();

    Format FileFormat() const;
    Version FileVersion() const;              // from $ACADVER; R12 when the header does not tell
    const std::string& VersionName() const;   // "AC1015", "" when absent
    const std::string& CodePageName() const;  // as $DWGCODEPAGE spells it, "" when absent
    const TextCodec& Codec() const;
    const std::vector<Finding>& Findings() const;
    bool ReadOnly() const;  // some finding has severity ReadOnly

    // Records. Indexes 0 .. Count()-1; those of the file first, in file order, then the inserted
    // ones in order of insertion. An index stays valid and is never used twice.
    RecordIndex Count() const;
    RecordIndex FileCount() const;
    const Record& At(RecordIndex index) const;  // hints are those of the present bytes
    std::string_view Bytes(
        RecordIndex index) const;  // present bytes; valid until the record changes
    GroupReader Groups(RecordIndex index,
                       uint32_t from = 0) const;         // from: a byte offset inside the record
    std::string_view TypeName(RecordIndex index) const;  // the value of the 0-group
    std::string_view LayerName(uint32_t layer) const;    // raw bytes of an interned group 8
    uint32_t LayerCount() const;                         // number of interned layer spellings
    uint64_t LineOf(RecordIndex index) const;            // for messages, as in Finding::line

    // The record that follows in the file as it stands now, inserted ones included; kNoRecord at
    // the end.
    RecordIndex Next(RecordIndex index) const;
    RecordIndex Previous(RecordIndex index) const;
    RecordIndex First() const;

    // First record with that handle, erased ones included; kNoRecord when there is none.
    RecordIndex FindHandle(uint64_t handle) const;
    // Above every handle in the file and $HANDSEED. When a record that is written bears such a
    // handle, the $HANDSEED of the saved file is above it: changed, or added to a HEADER section
    // that lacks it. A file without a HEADER section gets none.
    uint64_t NewHandle();
    // Gives a record without a usable handle one in memory; the file never shows it.
    void AssignMemoryHandle(RecordIndex index, uint64_t handle);

    // Edits. Each throws dxf::Error when ReadOnly(), and for bytes that are not one whole record.
    // A last line without its end gets one. The present bytes given again are no change.
    void Replace(RecordIndex index, std::string_view bytes);  // whole record, 0-group included
    // Gives a group that was read from the record another raw value; its views are gone then.
    void ReplaceValue(RecordIndex index, const Group& group, std::string_view value);
    RecordIndex InsertAfter(RecordIndex where, std::string bytes);
    void SetErased(RecordIndex index, bool erased);  // an erased record is left out at save
    GroupWriter NewWriter(
        RecordIndex neighbour = kNoRecord) const;  // format and line end of the place
    bool Modified() const;                         // a save would differ from the file
    // Another count than before tells that the record has changed since; it wraps.
    uint32_t ChangesOf(RecordIndex index) const;
    // Whether the text of a record, or a string of its extended data, can become this one while
    // another thread gives one to another such record: so it is for most texts, attributes and
    // polylines, and for texts of several lines that are one group before and after. Nothing else
    // may be done to the store meanwhile.
    bool CanChangeBeside(RecordIndex index, std::u16string_view text) const;
    void MarkSaved();

    // The file at a path as it was when this store read or saved it; nothing when it never did.
    std::optional<FileIdentity> Met(const std::string& nativePath) const;
    // For a copy of work that was never saved: it counts as modified until it is saved, and the
    // file it belongs to as met the way it was then.
    void StandFor(const std::string& nativePath, const std::optional<FileIdentity>& met);

    // Undo: between BeginRecording and EndRecording the first change of a record keeps its former
    // state. Handles that NewHandle gave are not taken back.
    void BeginRecording();
    std::vector<RecordState> EndRecording();
    // Puts the states back and returns what they replaced, so that a redo is the same call.
    std::vector<RecordState> Restore(const std::vector<RecordState>& states);

    // Temporary file beside the target, fsync, rename, fsync of the folder; "-" is standard output.
    // Throws dxf::Error and leaves the target as it was. A target that is the file that was read,
    // or one that was saved, and has changed on disk since is not overwritten unless force is true.
    // verify, when given, is called with the complete temporary file before the rename; what it
    // throws ends the save with the target untouched.
    using Verify = std::function<void(const std::string& temporaryPath)>;
    void Save(const std::string& nativePath, bool force = false, const Verify& verify = {});
    // The bytes that Save would write, in memory; for tests and small drawings.
    std::string ToBytes() const;

    // The file as it was read, for comparing a saved file with it.
    std::string_view Original() const;
    // All groups of the file as it was read, up to and with EOF.
    GroupReader OriginalGroups() const;
    // Groups that stand elsewhere in the format of this file, as in one that was saved from it.
    GroupReader GroupsIn(std::string_view bytes) const;

  private:
    Store();
    friend class Flattened;
    struct Impl;
    std::unique_ptr<Impl> impl;
};

}  // namespace dxf
