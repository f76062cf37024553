// Putting the file together again.
#include <algorithm>
#include <filesystem>

#include "platform/drawing/dxf/StoreState.h"

namespace dxf {

Flattened::Flattened(const Store::Impl& store) : store(store) {
    if (const uint64_t seed = store.NeededSeed()) header = store.HeaderWithSeed(seed);
}

void Flattened::WriteTo(const Sink& out) {
    sink = &out;
    copied = 0;
    for (const RecordIndex number : store.TouchedRecords()) {
        AddFileUpTo(store.index.records[number].offset);
        AddFileRecord(number);
        AddChain(number);
    }
    AddFileUpTo(store.file.Size());
}

void Flattened::Add(std::string_view piece) {
    (*sink)(piece);
    last = piece;
}

void Flattened::AddFileUpTo(uint64_t offset) {
    if (offset > copied) Add(store.file.View().substr(copied, offset - copied));
    copied = offset;
}

// What of the record stays as in the file is left to be copied with what comes next.
void Flattened::AddFileRecord(RecordIndex number) {
    const Record& record = store.index.records[number];
    const bool newHeader = number == store.index.header.record && !header.empty();
    if ((record.flags & kErased) || newHeader) {
        if (!(record.flags & kErased)) Add(header);
        copied = store.FileEnd(number);
    } else if (record.flags & kOverlaid) {
        const Overlay& overlay = store.edits.Find(number)->overlay;
        AddFileUpTo(record.offset + overlay.At());
        Add(overlay.Inserted());
        copied = overlay.IsWhole() ? store.FileEnd(number) : copied + overlay.Removed();
    }
}

void Flattened::AddChain(RecordIndex anchor) {
    if (!(store.index.records[anchor].flags & kFollowed)) return;
    AddFileUpTo(store.FileEnd(anchor));
    const Chain& chain = store.chains.at(anchor);
    for (RecordIndex number = chain.first;; number = store.links[number - store.fileCount].next) {
        // The file's last line may lack its end.
        const bool stands = !(store.index.records[number].flags & kErased);
        if (stands && !last.empty()) {
            const std::string_view missing = store.MissingLineEnd(last, anchor);
            if (!missing.empty()) Add(missing);
        }
        if (stands) Add(store.BytesOf(number));
        if (number == chain.last) return;
    }
}

std::vector<RecordIndex> Store::Impl::TouchedRecords() const {
    std::vector<RecordIndex> touched;
    edits.ForEach([&](RecordIndex number, const Edit& edit) {
        const bool differs = edit.overlay || (index.records[number].flags & kErased);
        if (number < fileCount && differs) touched.push_back(number);
    });
    const size_t edited = touched.size();
    for (const auto& [number, chain] : chains) touched.push_back(number);
    if (index.header.record != kNoRecord && NeededSeed() != 0)
        touched.push_back(index.header.record);
    if (touched.size() == edited) return touched;
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    return touched;
}

// Only a handle that is written counts: after an undo the file is what it was.
uint64_t Store::Impl::NeededSeed() const {
    if (nextHandle == firstNewHandle || index.header.record == kNoRecord) return 0;
    uint64_t needed = 0;
    edits.ForEach([&](RecordIndex number, const Edit&) {
        const Record& record = index.records[number];
        if (record.flags & (kErased | kMemoryHandle)) return;
        if (record.handle >= firstNewHandle && record.handle < nextHandle)
            needed = std::max(needed, record.handle + 1);
    });
    if (needed == 0) return 0;
    const HeaderVariables header = ReadHeaderVariables(Groups(BytesOf(index.header.record)));
    return header.handSeed < needed ? needed : 0;
}

std::string Store::Impl::HeaderWithSeed(uint64_t seed) const {
    const std::string_view bytes = BytesOf(index.header.record);
    const HeaderVariables header = ReadHeaderVariables(Groups(bytes));
    GroupWriter writer(index.format, index.wideCodes, LineEndAt(index.header.record));
    if (header.seedEnd != 0) {
        writer.Raw(bytes.substr(0, header.seedBegin)).Handle(5, seed);
        return writer.Raw(bytes.substr(header.seedEnd)).Take();
    }
    return writer.Raw(bytes).String(9, "$HANDSEED").Handle(5, seed).Take();
}

bool Store::Modified() const {
    bool modified = impl->neverSaved;
    impl->edits.ForEach([&](RecordIndex number, const Edit& edit) {
        if (modified || edit.saves != impl->saves) return;
        const bool erased = At(number).flags & kErased;
        const Overlay saved = edit.savedOverlay ? *edit.savedOverlay : Overlay();
        const bool same = erased || edit.overlay.SharesWith(saved);
        modified = erased != edit.savedErased ||
                   (!same && impl->Applied(number, edit.overlay) != impl->Applied(number, saved));
    });
    return modified;
}

void Store::MarkSaved() {
    impl->neverSaved = false;
    ++impl->saves;
}

std::string Store::ToBytes() const {
    std::string bytes;
    bytes.reserve(Original().size());
    Flattened(*impl).WriteTo([&](std::string_view piece) { bytes += piece; });
    return bytes;
}

namespace {

// Under which a file is remembered: the same for all the ways to write its name. Empty when there
// is no such file.
std::string MetName(const std::string& nativePath) {
    std::error_code failed;
    return std::filesystem::canonical(nativePath, failed).string();
}

}  // namespace

std::optional<FileIdentity> Store::Met(const std::string& nativePath) const {
    const auto known = impl->filesMet.find(MetName(nativePath));
    return known == impl->filesMet.end() ? std::nullopt : std::optional(known->second);
}

void Store::StandFor(const std::string& nativePath, const std::optional<FileIdentity>& met) {
    impl->neverSaved = true;
    const std::string name = MetName(nativePath);
    if (met && !name.empty()) impl->filesMet[name] = *met;
}

// What cannot be found or looked at any more is met again as a file of somebody else.
void Store::Impl::Meet(const std::string& nativePath) {
    const std::string met = MetName(nativePath);
    FileIdentity identity;
    if (!met.empty() && IdentifyFile(met, identity)) filesMet[met] = identity;
}

void Store::Save(const std::string& nativePath, bool force, const Verify& verify) {
    Flattened flattened(*impl);
    const auto content = [&](const Sink& sink) { flattened.WriteTo(sink); };
    if (nativePath == "-") return WriteToStandardOutput(content, verify);
    FileIdentity now;
    const bool exists = IdentifyFile(nativePath, now);
    const std::optional<FileIdentity> known = exists ? Met(nativePath) : std::nullopt;
    if (known && !force && !(now == *known))
        throw FileChanged(
            nativePath +
            ": the file changed on disk since it was read or saved; nothing was changed. "
            "Save under another name, or say that it may be overwritten");
    ReplaceFile(nativePath, content, verify);
    impl->Meet(nativePath);
}

}  // namespace dxf
