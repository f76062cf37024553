// Changing records, and taking changes back.
#include <algorithm>
#include <utility>

#include "platform/drawing/dxf/StoreState.h"

namespace dxf {

namespace {

constexpr uint8_t kPlaceFlags =
    kErased | kOverlaid | kInserted | kMemoryHandle | kDuplicateHandle | kFollowed;

Section SectionBehind(const Record& record) {
    return record.type == RecordType::Endsec ? Section::None : record.section;
}

}  // namespace

void Store::Impl::RequireEditable() const {
    if (!readOnly) return;
    const auto reason = std::find_if(
        index.findings.begin(), index.findings.end(),
        [](const Finding& finding) { return finding.severity == Finding::Severity::ReadOnly; });
    throw Error((path.empty() ? "the drawing" : path) +
                ": opened for reading only: " + reason->text);
}

// As the first line of the record ends.
std::string_view Store::Impl::LineEndAt(RecordIndex neighbour) const {
    if (index.lineEnd == '\r') return "\r";
    const std::string_view bytes = BytesOf(neighbour);
    const size_t end = bytes.find('\n');
    return end != bytes.npos && end > 0 && bytes[end - 1] == '\r' ? "\r\n" : "\n";
}

// What the last line lacks of its end; a file may have been cut between the two bytes of it.
std::string_view Store::Impl::MissingLineEnd(std::string_view bytes, RecordIndex neighbour) const {
    if (index.format != Format::Ascii || bytes.empty() || bytes.back() == index.lineEnd) return {};
    return bytes.back() == '\r' ? "\n" : LineEndAt(neighbour);
}

void Store::Impl::EndLastLine(std::string& bytes, RecordIndex neighbour) const {
    bytes += MissingLineEnd(bytes, neighbour);
}

// The index entry of bytes that are to become a record; throws for what is not one whole record.
Record Store::Impl::Describe(std::string_view bytes, Section section) {
    GroupReader groups = Groups(bytes);
    RecordBuilder builder(index.format, index.layers);
    Group group;
    if (!groups.Next(group) || group.code != 0 || group.begin != 0)
        throw Error("a record was given that does not begin with a group 0");
    builder.Begin(0, group.value, section);
    if (TypeOfName(group.value) == RecordType::Section) {
        GroupReader names = groups;
        Group name;
        if (names.Next(name) && name.code == 2) section = SectionOfName(name.value);
    }
    while (groups.Next(group)) {
        const Action action = ActionOfCode(group.code);
        if (action == Action::Zero) throw Error("a record was given that holds a second group 0");
        if (action != Action::None) builder.Take(action, group.value, group.begin);
    }
    if (groups.Broken()) throw Error("a record was given that ends inside a group");
    Record record = builder.End(bytes.size());
    record.section = section;
    return record;
}

// Takes over the hints; the place and what is known about the place stay. A record that bears no
// handle of its own keeps the one that it was given in memory.
void Store::Impl::TakeDescription(RecordIndex number, const Record& description) {
    Record& record = index.records[number];
    const uint64_t offset = record.offset;
    const uint8_t placeFlags = record.flags & kPlaceFlags;
    record = description;
    record.offset = offset;
    record.flags |= placeFlags & ~(kMemoryHandle | kDuplicateHandle);
    if (record.handle != 0) {
        const RecordIndex bearer = handles.Find(record.handle);
        if (bearer == kNoRecord || bearer == number) {
            if (bearer == kNoRecord) handles.Insert(number);
            return;
        }
        record.flags |= kDuplicateHandle;
    }
    const auto given = memoryHandles.find(number);
    if (given == memoryHandles.end()) return;
    record.handle = given->second;
    record.flags |= kMemoryHandle;
    handles.Insert(number);
}

// The record's bytes with the overlay on them.
std::string Store::Impl::Applied(RecordIndex number, const Overlay& overlay) const {
    if (overlay.IsWhole()) return std::string(overlay.Inserted());
    std::string bytes(FileBytes(number));
    return bytes.replace(overlay.At(), overlay.Removed(), overlay.Inserted());
}

// The edit of a record that is about to change.
Edit& Store::Impl::EditToChange(RecordIndex number) {
    Edit& edit = edits.Of(number);
    ++edit.changes;
    if (edit.saves == saves) return edit;
    edit.saves = saves;
    edit.savedErased = index.records[number].flags & kErased;
    edit.savedOverlay = edit.overlay ? std::make_unique<const Overlay>(edit.overlay) : nullptr;
    return edit;
}

void Store::Impl::SetOverlay(RecordIndex number, Overlay overlay) {
    Record& record = index.records[number];
    const bool inserted = record.flags & kInserted;
    if (overlay && !overlay.IsWhole()) overlay = Overlay(Applied(number, overlay));
    if (!inserted && overlay && overlay.Inserted() == FileBytes(number)) overlay = Overlay();
    const Record description =
        Describe(overlay ? overlay.Inserted() : FileBytes(number), record.section);
    Edit& edit = EditToChange(number);
    if (overlay && !inserted) record.flags |= kOverlaid;
    if (!overlay) record.flags &= ~kOverlaid;
    edit.patched.Reset();
    edit.overlay = std::move(overlay);
    TakeDescription(number, description);
}

// Whether another value changes nothing of the index but places and lengths, and the record is as
// in the file or patched.
bool Store::Impl::IsEasyToPatch(RecordIndex number, const Group& group) const {
    const Action action = ActionOfCode(group.code);
    return IsOfFileOrPatched(number) && group.IsString() &&
           (action == Action::None || action == Action::Text) &&
           MissingLineEnd(FileBytes(number), number).empty();
}

bool Store::Impl::IsOfFileOrPatched(RecordIndex number) const {
    const uint8_t flags = index.records[number].flags;
    return !(flags & kInserted) && !((flags & kOverlaid) && edits.Find(number)->overlay.IsWhole());
}

// One patch for what the record's patch changes and what stands at `at` of its present bytes.
Overlay Store::Impl::Joined(RecordIndex number, const Overlay& patch, uint32_t at, uint32_t removed,
                            std::string_view value) const {
    const std::string_view present = BytesOf(number);
    const auto inserted = uint32_t(patch.Inserted().size());
    const uint32_t begin = std::min(patch.At(), at);
    const uint32_t end = std::max(patch.At() + inserted, at + removed);
    std::string joined(present.substr(begin, at - begin));
    joined.append(value).append(present.substr(at + removed, end - at - removed));
    return Overlay(begin, end - inserted + patch.Removed() - begin, joined);
}

void Store::Impl::Patch(RecordIndex number, const Group& group, std::string_view value) {
    RefuseLineEnds(group.code, value, index.format);
    Record& record = index.records[number];
    const auto at = uint32_t(group.value.data() - BytesOf(number).data());
    const auto removed = uint32_t(group.value.size());
    const uint32_t longer = uint32_t(value.size()) - removed;  // wraps where it gets shorter
    Edit& edit = EditToChange(number);
    Overlay overlay = edit.overlay ? Joined(number, edit.overlay, at, removed, value)
                                   : Overlay(at, removed, value);
    const bool asInFile =
        FileBytes(number).substr(overlay.At(), overlay.Removed()) == overlay.Inserted();
    edit.overlay = asInFile ? Overlay() : std::move(overlay);
    edit.patched.Reset();
    record.flags = uint8_t(asInFile ? record.flags & ~kOverlaid : record.flags | kOverlaid);
    record.length += longer;
    for (uint32_t* hint : {&record.text, &record.xdata})
        if (*hint > at) *hint += longer;
}

void Store::Impl::SetErasedFlag(RecordIndex number, bool erased) {
    EditToChange(number);
    Record& record = index.records[number];
    record.flags = uint8_t(erased ? record.flags | kErased : record.flags & ~kErased);
}

RecordState Store::Impl::StateOf(RecordIndex number) const {
    const Edit* edit = edits.Find(number);
    return {number, edit ? edit->overlay : Overlay(), (index.records[number].flags & kErased) != 0,
            false};
}

// What Remember is to take after a change; made only where it is taken.
RecordState Store::Impl::StateBefore(RecordIndex number) const {
    return recording ? StateOf(number) : RecordState{number, Overlay(), false, false};
}

void Store::Impl::Remember(const RecordState& state) {
    if (recording && recordedIndexes.insert(state.index).second) recorded.push_back(state);
}

void Store::Replace(RecordIndex index, std::string_view bytes) {
    impl->RequireEditable();
    if (bytes == Bytes(index)) return;
    const RecordState before = impl->StateBefore(index);
    const std::string_view missing = impl->MissingLineEnd(bytes, index);
    impl->SetOverlay(
        index, missing.empty() ? Overlay(bytes) : Overlay(std::string(bytes).append(missing)));
    impl->Remember(before);
}

void Store::ReplaceValue(RecordIndex index, const Group& group, std::string_view value) {
    impl->RequireEditable();
    if (value == group.value) return;
    if (impl->IsEasyToPatch(index, group)) {
        const RecordState before = impl->StateBefore(index);
        impl->Patch(index, group, value);
        return impl->Remember(before);
    }
    const std::string_view old = Bytes(index);
    const auto at = size_t(group.value.data() - old.data());
    Replace(index, std::string(old).replace(at, group.value.size(), value));
}

bool Store::CanChangeBeside(RecordIndex index, std::u16string_view text) const {
    const Record& record = At(index);
    if (impl->recording || impl->readOnly || (record.flags & kHasEmbedded)) return false;
    if (!impl->IsOfFileOrPatched(index) || index + 1 >= impl->fileCount) return false;
    if (record.type == RecordType::LwPolyline) return true;
    if (record.text == 0) return false;
    GroupReader groups = Groups(index, record.text);
    Group group;
    if (!groups.Next(group) || group.code != 1) return false;
    if (record.type == RecordType::Text || record.type == RecordType::Attrib) return true;
    if (record.type != RecordType::Mtext) return false;
    const uint32_t end = record.xdata ? record.xdata : record.length;
    while (groups.Next(group) && group.begin < end)
        if (group.code == 1 || group.code == 3) return false;
    // A line feed would be written as a code of its own.
    return text.find(u'\n') == text.npos && Codec().Encode(text).size() <= kTextChunk;
}

// The table of edits, which another thread may be making, is asked for records alone that are in
// it.
uint32_t Store::ChangesOf(RecordIndex index) const {
    if (!(At(index).flags & (kOverlaid | kInserted))) return 0;
    return impl->edits.Find(index)->changes;
}

RecordIndex Store::InsertAfter(RecordIndex where, std::string bytes) {
    impl->RequireEditable();
    impl->EndLastLine(bytes, where);
    const Record description = impl->Describe(bytes, SectionBehind(At(where)));
    if (Count() >= kNoRecord / 2) throw Error("the drawing holds too many records");
    Record& record = impl->index.records.Append();
    const RecordIndex inserted = Count() - 1;
    record.flags = kInserted;
    Edit& edit = impl->edits.Of(inserted);
    edit.overlay = Overlay(bytes);
    edit.savedErased = true;
    edit.saves = impl->saves;
    impl->Link(inserted, where);
    impl->TakeDescription(inserted, description);
    impl->Remember({inserted, Overlay(), true, true});
    return inserted;
}

void Store::Impl::Link(RecordIndex inserted, RecordIndex where) {
    RecordIndex anchor = where;
    if (where >= fileCount) {
        Links& before = links[where - fileCount];
        links.push_back({where, before.next});
        links[where - fileCount].next = inserted;
    } else {
        Record& record = index.records[where];
        const RecordIndex behind = where + 1 < fileCount ? where + 1 : kNoRecord;
        const bool followed = record.flags & kFollowed;
        Chain& chain = chains[where];
        links.push_back({where, followed ? chain.first : behind});
        chain.first = inserted;
        if (!followed) chain.last = inserted;
        record.flags |= kFollowed;
    }
    // Whoever comes next must point back here: an inserted record by its link, one of the file by
    // the end of the chain before it.
    const RecordIndex next = links.back().next;
    if (next != kNoRecord && next >= fileCount) {
        links[next - fileCount].previous = inserted;
        return;
    }
    if (next != kNoRecord)
        anchor = next - 1;
    else
        anchor = fileCount - 1;
    chains[anchor].last = inserted;
}

void Store::SetErased(RecordIndex index, bool erased) {
    impl->RequireEditable();
    const RecordState before = impl->StateOf(index);
    if (before.erased == erased) return;
    impl->SetErasedFlag(index, erased);
    impl->Remember(before);
}

void Store::AssignMemoryHandle(RecordIndex index, uint64_t handle) {
    Record& record = impl->index.records[index];
    record.handle = handle;
    record.flags |= kMemoryHandle;
    impl->memoryHandles[index] = handle;
    impl->handles.Insert(index);
}

uint64_t Store::NewHandle() {
    if (impl->nextHandle == UINT64_MAX) throw Error("the drawing has no free handle left");
    return impl->nextHandle++;
}

GroupWriter Store::NewWriter(RecordIndex neighbour) const {
    const FileIndex& index = impl->index;
    return {index.format, index.wideCodes,
            impl->LineEndAt(neighbour == kNoRecord ? First() : neighbour)};
}

void Store::BeginRecording() {
    impl->recording = true;
    impl->recorded.clear();
    impl->recordedIndexes.clear();
}

std::vector<RecordState> Store::EndRecording() {
    impl->recording = false;
    impl->recordedIndexes.clear();
    return std::exchange(impl->recorded, {});
}

std::vector<RecordState> Store::Restore(const std::vector<RecordState>& states) {
    if (!states.empty()) impl->RequireEditable();
    std::vector<RecordState> replaced;
    replaced.reserve(states.size());
    for (const RecordState& state : states) {
        const RecordState before = impl->StateOf(state.index);
        replaced.push_back(before);
        // A record that did not exist yet keeps its bytes, for its index may be asked for still.
        if (!state.absent && !before.overlay.SharesWith(state.overlay))
            impl->SetOverlay(state.index, state.overlay);
        impl->SetErasedFlag(state.index, state.absent || state.erased);
        impl->Remember(before);
    }
    return replaced;
}

}  // namespace dxf
