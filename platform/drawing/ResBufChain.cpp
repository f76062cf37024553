// Chains of entries read from records and written as groups.
#include "platform/drawing/ResBufChain.h"

#include <limits>

#include "platform/drawing/Groups.h"
#include "platform/drawing/OdError.h"

namespace {

// The first codes of points: x stands there, y 10 and z 20 above.
bool isPoint(int code) {
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 ||
           (code >= 1010 && code <= 1013);
}

bool isHandle(int code) {
    return code == 5 || code == 105 || (code >= 320 && code <= 369) || code == 1005;
}

// Bytes of one group in a binary file; an ASCII one can be turned into it.
constexpr size_t kChunkLimit = 255;

// An entry takes many times the bytes of a small group.
constexpr size_t kMostEntries = 1'000'000;

[[noreturn]] void refuseLength(const dxf::Store& store, dxf::RecordIndex index) {
    throw OdError(eInvalidResBuf, OdString(u"object ") +
                                      OdDbHandle(store.At(index).handle).ascii() +
                                      u": it holds more than a million values, which are not read; "
                                      u"the drawing is damaged");
}

template <class Number>
bool within(int64_t value) {
    return value >= std::numeric_limits<Number>::min() &&
           value <= std::numeric_limits<Number>::max();
}

// A number that is too large would be cut in a binary file without a word. Both signed and unsigned
// numbers are about.
bool fits(dxf::ValueKind kind, int64_t value) {
    switch (kind) {
        case dxf::ValueKind::Int16:
            return within<int16_t>(value) || within<uint16_t>(value);
        case dxf::ValueKind::Int32:
            return within<int32_t>(value) || within<uint32_t>(value);
        case dxf::ValueKind::Bool:
            return within<uint8_t>(value);
        default:
            return true;
    }
}

}  // namespace

bool IsCoordinateOf(int former, int code) {
    return isPoint(former) && (code == former + 10 || code == former + 20);
}

OdResBufPtr ResBufReader::Read(const dxf::Store& store, dxf::RecordIndex index, uint32_t from,
                               uint32_t to) {
    if (from >= to) return OdResBufPtr();
    const std::string_view bytes = store.Bytes(index).substr(from, to - from);
    const OdSmartPtr<OdResBuf::Source> source(
        new OdResBuf::Source{std::string(bytes), store.Codec(), &store});
    OdResBufPtr first;
    OdResBuf* last = nullptr;
    size_t count = 0;
    auto reader = store.Groups(index, from);
    dxf::Group group;
    while (reader.Next(group) && group.begin < to) {
        const bool coordinate = last && IsCoordinateOf(last->type, group.code);
        if (coordinate) {
            auto& point = std::get<OdGePoint3d>(last->value);
            (group.code == last->type + 10 ? point.y : point.z) = group.AsDouble();
        }
        if (last) last->end = static_cast<uint32_t>(group.begin) - from;
        if (coordinate) last->valueEnd = static_cast<uint32_t>(group.end) - from;
        if (coordinate || group.code == 999) continue;

        if (++count > kMostEntries) refuseLength(store, index);
        OdResBufPtr entry(new OdResBuf(group.code));
        entry->group = group;
        entry->group.value = std::string_view(source->bytes)
                                 .substr(group.value.data() - bytes.data(), group.value.size());
        entry->group.begin -= from;
        entry->valueEnd = static_cast<uint32_t>(group.end) - from;
        entry->source = source;
        if (isPoint(group.code)) entry->value = OdGePoint3d{group.AsDouble(), 0, 0};
        if (last) {
            last->following = entry;
        } else {
            first = entry;
        }
        last = entry;
    }
    if (last) last->end = to - from;
    return first;
}

ResBufWriter::ResBufWriter(const dxf::Store& store, dxf::RecordIndex neighbour, uint64_t handle,
                           size_t stringLimit, const char16_t* what)
    : store(store),
      writer(store.NewWriter(neighbour)),
      handle(handle),
      stringLimit(stringLimit),
      what(what) {}

void ResBufWriter::Write(const OdResBuf& entry) {
    const bool unchanged = entry.source && entry.source->store == &store;
    if (unchanged) {
        writer.Raw(entry.sourceBytes());
    } else {
        WriteValue(entry);
        writer.Raw(entry.commentsFor(&store));
    }
}

void ResBufWriter::WriteValue(const OdResBuf& entry) {
    if (isPoint(entry.type)) return WritePoint(entry);
    const bool number = entry.source || std::holds_alternative<int64_t>(entry.value) ||
                        std::holds_alternative<double>(entry.value);
    switch (dxf::KindOfCode(entry.type)) {
        case dxf::ValueKind::String:
            return WriteString(entry);
        case dxf::ValueKind::Double:
            if (!number) Refuse(entry);
            writer.Double(entry.type, entry.getDouble());
            return;
        case dxf::ValueKind::Binary:
            if (!entry.source && !std::holds_alternative<std::string>(entry.value)) Refuse(entry);
            groups::CheckLength(u"binary data", handle, entry.getBinaryChunk().size(), kChunkLimit);
            writer.Chunk(entry.type, entry.getBinaryChunk());
            return;
        default:
            if (!entry.source && !std::holds_alternative<int64_t>(entry.value)) Refuse(entry);
            if (!fits(dxf::KindOfCode(entry.type), entry.getInt64())) Refuse(entry);
            writer.Int(entry.type, entry.getInt64());
    }
}

void ResBufWriter::WriteString(const OdResBuf& entry) {
    const bool text = entry.source || std::holds_alternative<std::u16string>(entry.value) ||
                      std::holds_alternative<OdDbHandle>(entry.value);
    if (!text) Refuse(entry);
    if (isHandle(entry.type)) {
        writer.Handle(entry.type, entry.getHandle());
        return;
    }
    const std::string encoded = store.Codec().Encode(entry.getString().text());
    groups::CheckLength(what, handle, encoded.size(), stringLimit);
    writer.String(entry.type, encoded);
}

void ResBufWriter::WritePoint(const OdResBuf& entry) {
    if (!std::holds_alternative<OdGePoint3d>(entry.value)) Refuse(entry);
    const OdGePoint3d point = entry.getPoint3d();
    writer.Double(entry.type, point.x).Double(entry.type + 10, point.y);
    writer.Double(entry.type + 20, point.z);
}

void ResBufWriter::Refuse(const OdResBuf& entry) const {
    throw OdError(eInvalidResBuf, OdString(u"object ") + OdDbHandle(handle).ascii() +
                                      u": an entry of type " +
                                      OdString(std::to_string(entry.type).c_str()) +
                                      u" does not take the value it was given");
}
