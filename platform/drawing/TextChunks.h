// Long texts in records: chunks of 250 bytes, and the XRECORD that holds a text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/Groups.h"

// The text encoded, in pieces that split no character and no escape; one empty piece for no text.
std::vector<std::string> ChunksOf(const dxf::TextCodec& codec, std::u16string_view text);

// As it stands in a text of several lines: a raw line feed has no place there; the code for a new
// line has.
std::u16string WithParagraphs(std::u16string_view text);

// The pieces as groups 3 ... 3, 1.
void WriteChunks(dxf::GroupWriter& writer, const std::vector<std::string>& chunks);

// The groups 3 ... 3, 1 between two places of a record: where each stands, and their text. The
// pieces are joined before they are decoded, since a piece may end inside a character or an escape.
struct ChunkRun {
    struct Place {
        uint32_t begin, end;
    };
    std::vector<Place> places;
    std::u16string text;
};
ChunkRun ReadChunks(const dxf::Store& store, dxf::RecordIndex index, uint32_t from, uint32_t to);

// The edits that put another text in the place of a run.
std::vector<groups::Edit> ChunkEdits(const dxf::Store& store, dxf::RecordIndex index,
                                     const ChunkRun& run, std::u16string_view text);

// The string that an XRECORD with a text begins with.
inline constexpr std::string_view kStringMark = "EObjString";
bool IsStringXrecord(const dxf::Store& store, dxf::RecordIndex index);
// Its text; a run without places for any other XRECORD.
ChunkRun ReadStringXrecord(const dxf::Store& store, dxf::RecordIndex index);
