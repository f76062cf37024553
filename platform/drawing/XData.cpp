// Reading and replacing the extended data of a record, application by application.
#include "platform/drawing/XData.h"

#include <algorithm>
#include <optional>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/ResBufChain.h"
#include "platform/text/Conversion.h"

using dxf::RecordIndex;

namespace {

constexpr int kApplication = OdResBuf::kDxfRegAppName;
constexpr size_t kStringLimit = 255;
constexpr char16_t kWhat[] = u"an extended data string";

// The data of one application inside a record.
struct Span {
    std::string_view rawName;
    uint32_t begin, end;
};

// Calls visit for the data of each application, in order, until it returns false.
template <class Visit>
void walkSpans(const dxf::Store& store, RecordIndex index, const Visit& visit) {
    const uint32_t from = store.At(index).xdata;
    if (from == 0) return;
    auto reader = store.Groups(index, from);
    dxf::Group group;
    Span span{{}, from, from};
    bool any = false;
    while (reader.Next(group) && (group.code >= 1000 || group.code == 999)) {
        if (group.code == kApplication) {
            if (any && !visit(span)) return;
            span = {group.value, static_cast<uint32_t>(group.begin), 0};
            any = true;
        }
        span.end = static_cast<uint32_t>(group.end);
    }
    if (any) visit(span);
}

bool sameName(const dxf::Store& store, std::string_view raw, std::u16string_view name) {
    if (store.Codec().Reads(raw, name)) return true;
    return text::CompareNoCase(store.Codec().Decode(raw), name) == 0;
}

// One application's part of a chain, as groups.
struct Part {
    OdString name;
    std::string bytes;  // empty: nothing stands behind the name, so the data go
    bool placed = false;
};

std::vector<Part> partsOf(const dxf::Store& store, RecordIndex index, const OdResBuf* chain) {
    if (!chain || chain->restype() != kApplication) {
        throw OdError(eInvalidResBuf, u"extended data must begin with the name of an application");
    }
    std::vector<Part> parts;
    while (chain) {
        Part part{chain->getString(), {}};
        if (part.name.isEmpty()) throw OdError(eInvalidResBuf, u"an application without a name");
        ResBufWriter writer(store, index, store.At(index).handle, kStringLimit, kWhat);
        writer.Write(*chain);
        bool any = false;
        for (chain = chain->next(); chain && chain->restype() != kApplication;
             chain = chain->next()) {
            if (chain->restype() < 1000 || chain->restype() > 1071) {
                throw OdError(eInvalidResBuf, u"extended data take the types 1000 to 1071 only");
            }
            writer.Write(*chain);
            any = true;
        }
        if (any) part.bytes = writer.Take();
        parts.push_back(std::move(part));
    }
    return parts;
}

// The one string of the span that other bytes of the span change.
struct ChangedValue {
    dxf::Group group;
    std::string_view value;
};

// Nothing when the bytes change more than that.
std::optional<ChangedValue> changedValue(const dxf::Store& store, RecordIndex index,
                                         const Span& span, std::string_view now) {
    const std::string_view was = store.Bytes(index).substr(span.begin, span.end - span.begin);
    const auto same = static_cast<size_t>(
        std::mismatch(was.begin(), was.end(), now.begin(), now.end()).first - was.begin());
    if (same == was.size()) return std::nullopt;
    auto reader = store.Groups(index, span.begin);
    dxf::Group group;
    do {
        if (!reader.Next(group)) return std::nullopt;
    } while (group.end - span.begin <= same);
    const auto at = static_cast<size_t>(group.value.data() - was.data());
    const size_t behind = was.size() - at - group.value.size();
    if (!group.IsString() || at > same || at + behind > now.size() ||
        !was.ends_with(now.substr(now.size() - behind))) {
        return std::nullopt;
    }
    const std::string_view value = now.substr(at, now.size() - behind - at);
    if (value.find_first_of(std::string_view("\r\n\0", 3)) != value.npos) return std::nullopt;
    return ChangedValue{group, value};
}

}  // namespace

XDataPlace FindXData(const dxf::Store& store, RecordIndex index, const OdString& application) {
    XDataPlace place;
    walkSpans(store, index, [&](const Span& span) {
        if (!application.isEmpty() && !sameName(store, span.rawName, application.text())) {
            return true;
        }
        if (place.end == 0) place.begin = span.begin;
        place.end = span.end;
        return application.isEmpty();
    });
    return place;
}

void CheckXDataLength(const dxf::Store& store, RecordIndex index, size_t bytes) {
    groups::CheckLength(kWhat, store.At(index).handle, bytes, kStringLimit);
}

OdResBufPtr ReadXData(const dxf::Store& store, RecordIndex index, const OdString& application) {
    const XDataPlace place = FindXData(store, index, application);
    return ResBufReader::Read(store, index, place.begin, place.end);
}

void WriteXData(OdDbDatabaseImpl& database, RecordIndex index, const OdResBuf* chain) {
    dxf::Store& store = database.store;
    std::vector<Part> parts = partsOf(store, index, chain);
    database.dictionaries.flush(index);
    std::vector<groups::Edit> edits;
    std::optional<ChangedValue> oneValue;
    uint32_t behind = store.At(index).length;
    walkSpans(store, index, [&](const Span& span) {
        behind = span.end;
        for (Part& part : parts) {
            // Data of the same application further on are not those that were read.
            const bool done = part.placed && !part.bytes.empty();
            if (done || !sameName(store, span.rawName, part.name.text())) continue;
            part.placed = true;
            edits.push_back({span.begin, span.end, part.bytes});
            if (parts.size() == 1) oneValue = changedValue(store, index, span, edits[0].bytes);
            break;
        }
        return true;
    });
    if (oneValue && edits.size() == 1) {
        return store.ReplaceValue(index, oneValue->group, oneValue->value);
    }
    for (const Part& part : parts) {
        if (part.placed || part.bytes.empty()) continue;
        database.newRegApp(part.name);
        edits.push_back({behind, behind, part.bytes});
    }
    if (!edits.empty()) groups::Apply(store, index, edits);
}
