// Opening a drawing file, and reading its records.
#include "platform/drawing/dxf/Store.h"

#include <algorithm>

#include "platform/drawing/dxf/FileInput.h"
#include "platform/drawing/dxf/LineEnds.h"
#include "platform/drawing/dxf/StoreState.h"

namespace dxf {

Store::Store() : impl(std::make_unique<Impl>()) {}
Store::~Store() = default;

std::unique_ptr<Store> Store::Read(const std::string& nativePath) {
    try {
        std::unique_ptr<Store> store(new Store);
        Impl& impl = *store->impl;
        FileInput input(nativePath, impl.file);
        impl.path = input.Path();
        if (!impl.path.empty()) impl.filesMet[impl.path] = input.Identity();
        try {
            impl.IndexFile([&](size_t end) { input.Await(end); });
        } catch (const Error&) {
            input.Finish();  // a file that changes meanwhile explains it better
            throw;
        }
        input.Finish();
        return store;
    } catch (const Error& error) {
        throw Error((nativePath == "-" ? "standard input" : nativePath) + ": " + error.what());
    }
}

std::unique_ptr<Store> Store::Parse(std::string bytes) {
    std::unique_ptr<Store> store(new Store);
    store->impl->file = Buffer(bytes);
    store->impl->IndexFile([](size_t) {});
    return store;
}

void Store::Impl::IndexFile(const Await& await) {
    RecogniseFile(file, index, await);
    index.format == Format::Ascii ? IndexAscii(file, index, await)
                                  : IndexBinary(file, index, await);
    fileCount = index.records.Count();
    edits.Expect(fileCount);
    version = VersionOfName(index.header.version);
    codec = std::make_unique<TextCodec>(version, index.header.codePage);
    EnterHandles();
    readOnly = std::any_of(
        index.findings.begin(), index.findings.end(),
        [](const Finding& finding) { return finding.severity == Finding::Severity::ReadOnly; });
}

void Store::Impl::EnterHandles() {
    RecordIndex duplicates = 0;
    uint64_t highest = 0;
    handles.Reserve(fileCount, index.header.handSeed);
    for (RecordIndex i = 0; i < fileCount; ++i) {
        Record& record = index.records[i];
        if (record.handle == 0) continue;
        highest = std::max(highest, record.handle);
        if (handles.Insert(i) == i) continue;
        record.flags |= kDuplicateHandle;
        ++duplicates;
    }
    if (duplicates != 0)
        index.findings.push_back({Finding::Severity::Note, 0,
                                  std::to_string(duplicates) +
                                      " records bear a handle that an earlier one bears; the "
                                      "earlier one is found by it"});
    const uint64_t behindHighest = highest == UINT64_MAX ? highest : highest + 1;
    firstNewHandle = nextHandle = std::max(index.header.handSeed, behindHighest);
}

Format Store::FileFormat() const { return impl->index.format; }
Version Store::FileVersion() const { return impl->version; }
const std::string& Store::VersionName() const { return impl->index.header.version; }
const std::string& Store::CodePageName() const { return impl->index.header.codePage; }
const TextCodec& Store::Codec() const { return *impl->codec; }
const std::vector<Finding>& Store::Findings() const { return impl->index.findings; }
bool Store::ReadOnly() const { return impl->readOnly; }

RecordIndex Store::Count() const { return impl->index.records.Count(); }
RecordIndex Store::FileCount() const { return impl->fileCount; }
const Record& Store::At(RecordIndex index) const { return impl->index.records[index]; }
std::string_view Store::Bytes(RecordIndex index) const { return impl->BytesOf(index); }

std::string_view Store::Impl::BytesOf(RecordIndex number) const {
    const Record& record = index.records[number];
    if (!(record.flags & (kOverlaid | kInserted))) return FileBytes(number);
    const Edit& edit = *edits.Find(number);
    if (edit.overlay.IsWhole()) return edit.overlay.Inserted();
    return edit.patched.Get([&] { return Applied(number, edit.overlay); });
}

GroupReader Store::Groups(RecordIndex index, uint32_t from) const {
    return impl->Groups(Bytes(index), from);
}

std::string_view Store::TypeName(RecordIndex index) const {
    Group group;
    return Groups(index).Next(group) ? group.value : std::string_view();
}

std::string_view Store::LayerName(uint32_t layer) const {
    return layer < LayerCount() ? impl->index.layers.Name(layer) : std::string_view();
}

uint32_t Store::LayerCount() const { return impl->index.layers.Count(); }

uint64_t Store::LineOf(RecordIndex index) const {
    while (At(index).flags & kInserted) index = Previous(index);
    const uint64_t offset = At(index).offset;
    if (FileFormat() == Format::Binary) return offset;
    return CountByte(impl->file.Data(), offset, impl->index.lineEnd) + 1;
}

RecordIndex Store::First() const { return 0; }

RecordIndex Store::Next(RecordIndex index) const {
    const Record& record = At(index);
    if (record.flags & kInserted) return impl->links[index - impl->fileCount].next;
    if (record.flags & kFollowed) return impl->chains.at(index).first;
    return index + 1 < impl->fileCount ? index + 1 : kNoRecord;
}

RecordIndex Store::Previous(RecordIndex index) const {
    if (At(index).flags & kInserted) return impl->links[index - impl->fileCount].previous;
    if (index == 0) return kNoRecord;
    return At(index - 1).flags & kFollowed ? impl->chains.at(index - 1).last : index - 1;
}

RecordIndex Store::FindHandle(uint64_t handle) const { return impl->handles.Find(handle); }

std::string_view Store::Original() const { return impl->file.View(); }

GroupReader Store::OriginalGroups() const {
    return impl->Groups(Original().substr(0, impl->index.bodyEnd), At(0).offset);
}

GroupReader Store::GroupsIn(std::string_view bytes) const { return impl->Groups(bytes); }

}  // namespace dxf
