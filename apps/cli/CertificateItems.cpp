// Reading of single records for the certificate, independent of the index of the store.
#include "apps/cli/CertificateItems.h"

#include <algorithm>
#include <cstring>

namespace cli {

namespace {

constexpr size_t kLongestRecord = size_t{1} << 31;

bool IsTextChunk(int code) { return code == 1 || code == 3; }

// Appends to the value of the last item.
void Join(RawRecord& record, std::string_view chunk) {
    Item& item = record.items.back();
    if (record.joined.empty() || record.joined.back().data() != item.value.data()) {
        record.joined.emplace_back(item.value);
    }
    record.joined.back() += chunk;
    item.value = record.joined.back();
}

void Clear(RawRecord& record) {
    record.handle = record.owner = 0;
    record.items.clear();  // keeps its memory for the next record
    record.joined.clear();
}

// In an mtext, and in what is embedded in an attribute, adjacent 3 and 1 groups are one text.
void AddItem(RawRecord& record, const dxf::Group& group, bool chunked, Item::Part part) {
    if (chunked && IsTextChunk(group.code) && !record.items.empty() &&
        record.items.back().code == 1) {
        Join(record, group.value);
        return;
    }
    const int code = chunked && group.code == 3 ? 1 : group.code;
    record.items.push_back({code, group.value, part});
}

}  // namespace

bool ReadRecord(const dxf::Store& store, std::string_view file, size_t position,
                RawRecord& record) {
    dxf::GroupReader reader = store.GroupsIn(file.substr(position, kLongestRecord));
    dxf::Group group;
    if (!reader.Next(group) || group.code != 0) return false;
    Clear(record);
    record.begin = position;
    record.type = group.value;
    record.end = position + group.end;
    if (record.type == "EOF") return true;

    const int handleCode = record.type == "DIMSTYLE" ? 105 : 5;
    const bool header = record.type == "SECTION";
    const bool mtext = record.type == "MTEXT";
    Item::Part part = Item::Part::Own;
    bool inBraces = false;
    while (reader.Next(group) && group.code != 0) {
        record.end = position + group.end;
        if (group.code == 101) part = Item::Part::Embedded;
        if (group.code == 1001) part = Item::Part::XData;
        if (group.code == 102) inBraces = group.value.starts_with('{');
        if (group.code == handleCode && !header && record.handle == 0) {
            record.handle = group.AsHandle();
        }
        if (group.code == 330 && !inBraces && record.owner == 0) record.owner = group.AsHandle();
        const bool chunked = part == Item::Part::Embedded || (mtext && part == Item::Part::Own);
        AddItem(record, group, chunked, part);
    }
    return true;
}

size_t CommonPrefix(std::string_view a, std::string_view b) {
    const size_t most = std::min(a.size(), b.size());
    size_t equal = 0;
    for (const size_t step : {1024, 128, 16}) {
        while (equal + step <= most && std::memcmp(a.data() + equal, b.data() + equal, step) == 0) {
            equal += step;
        }
    }
    while (equal < most && a[equal] == b[equal]) ++equal;
    return equal;
}

// What both have before the first difference, and between two of them, is read in one alone.
bool ReadDifferences(const dxf::Store& store, std::string_view old, std::string_view now,
                     size_t same, RawRecord& oldRecord, RawRecord& nowRecord) {
    dxf::GroupReader groups = store.GroupsIn(old);
    dxf::Group group, other;
    if (!groups.Next(group) || group.end > same || group.value == "MTEXT") return false;
    Clear(oldRecord);
    Clear(nowRecord);
    oldRecord.type = nowRecord.type = group.value;
    Item::Part part = Item::Part::Own;
    size_t behind = 0;  // how far, in `now`, what stands in `old` is moved; wraps
    while (same < old.size() && groups.Next(group)) {
        if (group.code == 101) return false;
        if (group.code == 1001) part = Item::Part::XData;
        if (group.end <= same) continue;
        const bool text = group.code == 1 || (part == Item::Part::XData && group.code != 1001);
        if (!text || group.begin + behind > now.size()) return false;
        dxf::GroupReader others = store.GroupsIn(now.substr(group.begin + behind));
        if (!others.Next(other) || other.begin != 0 || other.code != group.code) return false;
        oldRecord.items.push_back({group.code, group.value, part});
        nowRecord.items.push_back({other.code, other.value, part});
        behind += other.end - (group.end - group.begin);
        same = group.end + CommonPrefix(old.substr(group.end), now.substr(group.end + behind));
    }
    nowRecord.end = old.size() + behind;
    if (same < old.size()) return false;
    return store.GroupsIn(now.substr(nowRecord.end)).Next(other) && other.code == 0;
}

}  // namespace cli
