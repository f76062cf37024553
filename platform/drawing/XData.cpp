// Reading and replacing the extended data of a record, application by application.
#include "platform/drawing/XData.h"

#include <algorithm>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/ResBufChain.h"
#include "platform/text/Conversion.h"

using dxf::RecordIndex;

namespace {

constexpr int kApplication = OdResBuf::kDxfRegAppName;
constexpr size_t kStringLimit = 255;

// The data of one application inside a record.
struct Span {
    std::string_view rawName;
    uint32_t begin, end;
};

std::vector<Span> spansOf(const dxf::Store& store, RecordIndex index) {
    std::vector<Span> spans;
    const uint32_t from = store.At(index).xdata;
    if (from == 0) return spans;
    auto reader = store.Groups(index, from);
    dxf::Group group;
    while (reader.Next(group) && (group.code >= 1000 || group.code == 999)) {
        if (group.code == kApplication) {
            spans.push_back({group.value, static_cast<uint32_t>(group.begin), 0});
        }
        if (!spans.empty()) spans.back().end = static_cast<uint32_t>(group.end);
    }
    return spans;
}

bool sameName(const dxf::Store& store, std::string_view raw, std::u16string_view name) {
    const bool plain = name.find_first_of(u"^\\") == name.npos;
    if (plain && std::equal(raw.begin(), raw.end(), name.begin(), name.end())) return true;
    const std::u16string decoded = store.Codec().Decode(raw);
    return decoded == name || text::CompareNoCase(decoded, name) == 0;
}

// One application's part of a chain, as groups.
struct Part {
    OdString name;
    std::string bytes;  // empty: nothing stands behind the name, so the data go
};

std::vector<Part> partsOf(const dxf::Store& store, RecordIndex index, const OdResBuf* chain) {
    if (!chain || chain->restype() != kApplication) {
        throw OdError(eInvalidResBuf, u"extended data must begin with the name of an application");
    }
    std::vector<Part> parts;
    while (chain) {
        Part part{chain->getString(), {}};
        if (part.name.isEmpty()) throw OdError(eInvalidResBuf, u"an application without a name");
        ResBufWriter writer(store, index, store.At(index).handle, kStringLimit,
                            u"an extended data string");
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

}  // namespace

OdResBufPtr ReadXData(const dxf::Store& store, RecordIndex index, const OdString& application) {
    const std::vector<Span> spans = spansOf(store, index);
    if (spans.empty()) return OdResBufPtr();
    if (application.isEmpty()) {
        return ResBufReader::Read(store, index, spans.front().begin, spans.back().end);
    }
    for (const Span& span : spans) {
        if (sameName(store, span.rawName, application.text())) {
            return ResBufReader::Read(store, index, span.begin, span.end);
        }
    }
    return OdResBufPtr();
}

void WriteXData(OdDbDatabaseImpl& database, RecordIndex index, const OdResBuf* chain) {
    dxf::Store& store = database.store;
    std::vector<Part> parts = partsOf(store, index, chain);
    database.dictionaries.flush(index);
    std::vector<groups::Edit> edits;
    const std::vector<Span> spans = spansOf(store, index);
    for (const Span& span : spans) {
        for (Part& part : parts) {
            if (!sameName(store, span.rawName, part.name.text())) continue;
            edits.push_back({span.begin, span.end, std::exchange(part.bytes, {})});
            break;
        }
    }
    const uint32_t behind = spans.empty() ? store.At(index).length : spans.back().end;
    for (const Part& part : parts) {
        if (part.bytes.empty()) continue;
        database.newRegApp(part.name);
        edits.push_back({behind, behind, part.bytes});
    }
    if (!edits.empty()) groups::Apply(store, index, edits);
}
