// Finding and changing single groups of a record.
#include "platform/drawing/Groups.h"

#include "platform/drawing/DbHandle.h"
#include "platform/drawing/OdError.h"

namespace groups {

namespace {

constexpr int kEmbeddedObject = 101;
constexpr int kControl = 102;  // "{NAME" begins groups of an application, "}" ends them
constexpr size_t kTextLimit = 2049;
constexpr size_t kOldTextLimit = 255;

OdString number(size_t value) { return OdString(std::to_string(value).c_str()); }

// Half of what follows the code in an empty group, which is "  0", line end, line end.
std::string lineEnd(const dxf::Store& store, dxf::RecordIndex index) {
    const std::string empty = store.NewWriter(index).String(0, "").Take();
    return empty.substr((3 + empty.size()) / 2);
}

// What the last line lacks of its end; a file may have been cut between the two bytes of it.
std::string missingLineEnd(const dxf::Store& store, dxf::RecordIndex index,
                           std::string_view bytes) {
    if (store.FileFormat() != dxf::Format::Ascii || bytes.empty()) return {};
    const std::string end = lineEnd(store, index);
    if (bytes.back() == end.back()) return {};
    return bytes.back() == '\r' ? "\n" : end;
}

}  // namespace

Layout LayoutOf(const dxf::Store& store, dxf::RecordIndex index) {
    const dxf::Record& record = store.At(index);
    Layout layout;
    layout.size = record.length;
    layout.xdataBegin = record.xdata ? record.xdata : layout.size;
    layout.ownEnd = layout.xdataBegin;
    if (!(record.flags & dxf::kHasEmbedded)) return layout;

    auto reader = store.Groups(index);
    dxf::Group group;
    while (reader.Next(group)) {
        if (group.code == kEmbeddedObject) {
            layout.embeddedBegin = static_cast<uint32_t>(group.begin);
            const bool dataBehind = record.xdata > layout.embeddedBegin;
            layout.embeddedEnd = dataBehind ? record.xdata : layout.size;
            layout.ownEnd = std::min(layout.embeddedBegin, layout.xdataBegin);
            break;
        }
    }
    return layout;
}

std::optional<dxf::Group> Find(const dxf::Store& store, dxf::RecordIndex index, int code,
                               uint32_t from) {
    auto reader = store.Groups(index, from);
    dxf::Group group;
    bool inControl = false;
    while (reader.Next(group)) {
        if (group.code == code && !inControl) return group;
        if (group.code == kControl) inControl = group.value.starts_with('{');
        if (group.code == kEmbeddedObject || group.code >= 1000) break;
    }
    return std::nullopt;
}

OdString Decode(const dxf::Store& store, std::string_view raw) {
    return OdString(store.Codec().Decode(raw));
}

OdString Text(const dxf::Store& store, dxf::RecordIndex index, int code, uint32_t from) {
    const auto group = Find(store, index, code, from);
    return group ? Decode(store, group->value) : OdString();
}

void Apply(dxf::Store& store, dxf::RecordIndex index, const std::vector<Edit>& edits) {
    const std::string_view old = store.Bytes(index);
    std::string bytes;
    size_t done = 0;
    for (const Edit& edit : edits) {
        bytes += old.substr(done, edit.begin - done);
        const bool added = edit.begin == edit.end && !edit.bytes.empty();
        if (added) bytes += missingLineEnd(store, index, bytes);
        bytes += edit.bytes;
        done = edit.end;
    }
    bytes += old.substr(done);
    store.Replace(index, std::move(bytes));
}

Edit ValueEdit(const dxf::Store& store, dxf::RecordIndex index, const dxf::Group& group,
               std::string encoded) {
    const auto begin = static_cast<uint32_t>(group.value.data() - store.Bytes(index).data());
    return {begin, begin + static_cast<uint32_t>(group.value.size()), std::move(encoded)};
}

size_t TextLimit(const dxf::Store& store) {
    return store.FileVersion() < dxf::Version::R2000 ? kOldTextLimit : kTextLimit;
}

void CheckLength(const char16_t* what, uint64_t handle, size_t bytes, size_t limit) {
    if (bytes <= limit) return;
    throw OdError(eStringTooLong, OdString(u"object ") + OdDbHandle(handle).ascii() + u": " + what +
                                      u" of " + number(bytes) +
                                      u" bytes is too long for the drawing, which takes " +
                                      number(limit) + u"; shorten it");
}

}  // namespace groups
