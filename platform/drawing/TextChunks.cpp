// Long texts in records.
#include "platform/drawing/TextChunks.h"

#include "platform/drawing/Groups.h"

namespace {

using dxf::kTextChunk;

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

bool isUndecodableByte(char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; }

// A surrogate pair, \U+XXXX, \M+nXXXX, or a backslash with what it escapes.
size_t ownLength(std::u16string_view text) {
    if (isHighSurrogate(text[0]) && text.size() > 1 && isLowSurrogate(text[1])) return 2;
    if (text[0] != u'\\') return 1;
    // The backslash that escapes another one stays with what the second would begin.
    const size_t escaping = text.substr(1).starts_with(u'\\');
    const std::u16string_view escape = text.substr(escaping);
    const size_t unit = escape.starts_with(u"\\U+")   ? 7
                        : escape.starts_with(u"\\M+") ? 8
                        : escaping                    ? 1
                                                      : 2;
    const size_t wanted = escaping + unit;
    const size_t length = std::min(wanted, text.size());
    const bool cutsPair =
        length < text.size() && isHighSurrogate(text[length - 1]) && isLowSurrogate(text[length]);
    return cutsPair ? length + 1 : length;
}

// How many units at the start of the text stay together. A byte that could not be decoded may make
// a character with the byte behind it; the codec sees that only where it is given both.
size_t unitLength(std::u16string_view text) {
    constexpr size_t kLongest = 25;
    size_t length = ownLength(text);
    while (length < std::min(text.size(), kLongest) && isUndecodableByte(text[length - 1])) {
        length += ownLength(text.substr(length));
    }
    return length;
}

// The first string group behind the mark of its subclass.
std::optional<dxf::Group> markOf(const dxf::Store& store, dxf::RecordIndex index) {
    auto reader = store.Groups(index);
    dxf::Group group;
    bool inside = false;
    while (reader.Next(group) && group.code < 1000) {
        if (group.code == 100) {
            inside = true;
        } else if (inside && group.code != 280 && group.code != 999) {
            return group.code == 1 ? std::optional(group) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::string> ChunksOf(const dxf::TextCodec& codec, std::u16string_view text) {
    std::vector<std::string> chunks{codec.Encode(text)};
    if (chunks[0].size() <= kTextChunk) return chunks;
    chunks = {std::string()};
    while (!text.empty()) {
        const size_t length = unitLength(text);
        const std::string unit = codec.Encode(text.substr(0, length));
        if (chunks.back().size() + unit.size() > kTextChunk) chunks.emplace_back();
        chunks.back() += unit;
        text.remove_prefix(length);
    }
    return chunks;
}

std::u16string WithParagraphs(std::u16string_view text) {
    std::u16string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
        if (text[i] == u'\n') {
            result += u"\\P";
        } else {
            result += text[i];
        }
    }
    return result;
}

void WriteChunks(dxf::GroupWriter& writer, const std::vector<std::string>& chunks) {
    for (size_t i = 0; i + 1 < chunks.size(); ++i) writer.String(3, chunks[i]);
    writer.String(1, chunks.back());
}

ChunkRun ReadChunks(const dxf::Store& store, dxf::RecordIndex index, uint32_t from, uint32_t to) {
    ChunkRun run;
    std::string raw;
    auto reader = store.Groups(index, from);
    dxf::Group group;
    while (reader.Next(group) && group.begin < to) {
        if (group.code != 1 && group.code != 3) continue;
        run.places.push_back(
            {static_cast<uint32_t>(group.begin), static_cast<uint32_t>(group.end)});
        raw += group.value;
    }
    run.text = store.Codec().Decode(raw);
    return run;
}

std::vector<groups::Edit> ChunkEdits(const dxf::Store& store, dxf::RecordIndex index,
                                     const ChunkRun& run, std::u16string_view text) {
    dxf::GroupWriter writer = store.NewWriter(index);
    WriteChunks(writer, ChunksOf(store.Codec(), text));
    std::vector<groups::Edit> edits;
    for (const auto& [begin, end] : run.places) edits.push_back({begin, end, {}});
    if (!edits.empty()) edits[0].bytes = writer.Take();
    return edits;
}

bool IsStringXrecord(const dxf::Store& store, dxf::RecordIndex index) {
    const auto mark = markOf(store, index);
    return mark && mark->value == kStringMark;
}

ChunkRun ReadStringXrecord(const dxf::Store& store, dxf::RecordIndex index) {
    const auto mark = markOf(store, index);
    if (!mark || mark->value != kStringMark) return {};
    const uint32_t end = groups::LayoutOf(store, index).ownEnd;
    return ReadChunks(store, index, static_cast<uint32_t>(mark->end), end);
}
