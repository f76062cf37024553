// What the passes over both formats share: recognising the file, following its sections.
#include "platform/drawing/dxf/FileIndex.h"

#include <algorithm>

#include "platform/drawing/dxf/LineEnds.h"

namespace dxf {

namespace {

using namespace std::literals;

constexpr std::string_view kSentinel = "AutoCAD Binary DXF\r\n\x1a\0"sv;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"sv;
constexpr size_t kFirst = 4096;  // bytes that mostly tell the line end

struct Signature {
    std::string_view bytes;
    std::string_view what;
};

constexpr Signature kForeign[] = {
    {"\x89PNG"sv, "a PNG picture"},   {"\xFF\xD8\xFF"sv, "a JPEG picture"},
    {"%PDF"sv, "a PDF document"},     {"PK\x03\x04"sv, "a ZIP archive"},
    {"\x1F\x8B"sv, "a gzip archive"}, {"\xFF\xFE"sv, "a UTF-16 text"},
    {"\xFE\xFF"sv, "a UTF-16 text"},
};

bool IsDwg(std::string_view bytes) {
    return bytes.size() >= 6 && bytes.starts_with("AC") &&
           bytes.substr(2, 4).find_first_not_of("0123456789.") == bytes.npos;
}

void RefuseForeign(std::string_view bytes) {
    if (bytes.empty()) throw Error("the file is empty");
    if (IsDwg(bytes))
        throw Error("this is a DWG drawing (" + std::string(bytes.substr(0, 6)) +
                    "), which is not read here; save it as DXF, or import it through a converter");
    for (const Signature& foreign : kForeign)
        if (bytes.starts_with(foreign.bytes))
            throw Error("this is " + std::string(foreign.what) + " and no DXF drawing");
}

}  // namespace

void RecogniseFile(const Buffer& file, FileIndex& index, const Await& await) {
    const std::string_view bytes = file.View();
    const size_t first = std::min(bytes.size(), kFirst);
    await(first);
    RefuseForeign(bytes);
    if (bytes.starts_with(kSentinel)) {
        index.format = Format::Binary;
        index.bodyBegin = kSentinel.size();
        // The first group is 0 SECTION: its second byte is a letter unless codes have two bytes.
        const std::string_view body = bytes.substr(kSentinel.size());
        index.wideCodes = body.size() < 2 || uint8_t(body[1]) < ' ';
        return;
    }
    index.format = Format::Ascii;
    index.bodyBegin = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    index.lineEnd = '\n';
    if (bytes.substr(0, first).find('\n') != bytes.npos) return;
    await(bytes.size());
    if (bytes.find('\n') == bytes.npos && bytes.find('\r') != bytes.npos) index.lineEnd = '\r';
}

// Records of ordinary drawings have 80 bytes and more. A file of nothing but the smallest ones
// would make an index of twelve times its size.
uint64_t IndexBuilder::RecordLimit(uint64_t fileSize) {
    return std::min<uint64_t>(100'000 + fileSize / 16, kNoRecord / 2);
}

void IndexBuilder::Start(uint64_t offset, std::string_view typeName) {
    if (open) Close(offset);
    builder.Begin(offset, typeName, section);
    open = true;
}

void IndexBuilder::Close(uint64_t offset) {
    if (index.records.Count() >= limit)
        throw Error("the file holds more than " + std::to_string(limit) +
                    " records, too many for its size; it is damaged or no drawing");
    Record& record = index.records.Append(builder.End(offset));
    if (record.type == RecordType::Section || record.type == RecordType::Eof)
        CheckSectionEnded(record.offset);
    if (record.type == RecordType::Section)
        EnterSection(record);
    else if (record.type == RecordType::Endsec)
        section = Section::None;
}

void IndexBuilder::CheckSectionEnded(uint64_t offset) {
    if (section == Section::None) return;
    const bool ascii = index.format == Format::Ascii;
    const uint64_t line = ascii ? CountByte(file.Data(), offset, index.lineEnd) + 1 : offset;
    index.findings.push_back({Finding::Severity::ReadOnly, line,
                              "the section ahead of this place has no ENDSEC, so the file is "
                              "opened for reading only"});
    section = Section::None;
}

void IndexBuilder::EnterSection(Record& record) {
    seenSection = true;
    const GroupReader groups(index.format, index.wideCodes,
                             file.View().substr(record.offset, record.length), 0, index.lineEnd);
    GroupReader names = groups;
    Group group;
    section = Section::Other;
    while (names.Next(group))
        if (group.code == 2) {
            section = SectionOfName(group.value);
            break;
        }
    record.section = section;
    if (section != Section::Header || index.header.record != kNoRecord) return;
    index.header = ReadHeaderVariables(groups);
    index.header.record = index.records.Count() - 1;
}

void IndexBuilder::Finish(uint64_t offset) {
    if (open) Close(offset);
    open = false;
    index.bodyEnd = offset;
    if (!seenSection) throw Error("the file holds no SECTION; this is no DXF drawing");
    const RecordType last = index.records[index.records.Count() - 1].type;
    if (last == RecordType::Eof) return;
    if (last == RecordType::Endsec)
        index.findings.push_back({Finding::Severity::Note, 0, "the EOF group is missing"});
    else
        index.findings.push_back({Finding::Severity::ReadOnly, 0,
                                  "the file ends inside a section: its end is missing, so it is "
                                  "opened for reading only"});
}

}  // namespace dxf
