// The index entry of one record of a DXF file.
#pragma once

#include <cstdint>
#include <limits>

namespace dxf {

using RecordIndex = uint32_t;
inline constexpr RecordIndex kNoRecord = std::numeric_limits<uint32_t>::max();
inline constexpr uint32_t kNoLayer = std::numeric_limits<uint32_t>::max();

enum class Format : uint8_t { Ascii, Binary };

// Ordered: a later release compares greater.
enum class Version : uint8_t { Older, R12, R13, R14, R2000, R2004, R2007, R2010, R2013, R2018 };

enum class Section : uint8_t {
    None,
    Header,
    Classes,
    Tables,
    Blocks,
    Entities,
    Objects,
    Thumbnail,
    AcdsData,
    Other
};

// The record types that the drawing database tells apart; all others are Other.
enum class RecordType : uint16_t {
    Other,
    Section,
    Endsec,
    Eof,
    Table,
    Endtab,
    Class,
    Layer,
    Style,
    AppId,
    BlockRecord,
    DimStyle,
    Block,
    Endblk,
    Insert,
    Attrib,
    Attdef,
    Seqend,
    Vertex,
    Polyline,
    Text,
    Mtext,
    LwPolyline,
    Dictionary,
    Xrecord
};

// 48 bytes. Offsets of text and xdata are relative to the record's first byte; 0 = none.
struct Record {
    uint64_t offset = 0;        // in the file; meaningless for inserted records
    uint64_t handle = 0;        // group 5 (105 in DIMSTYLE); 0 = none
    uint64_t owner = 0;         // first 330 outside the 102 groups; 0 = none
    uint32_t length = 0;        // present length in bytes
    uint32_t text = 0;          // first 1 or 3 group ahead of any 101 group
    uint32_t xdata = 0;         // first 1001 group
    uint32_t layer = kNoLayer;  // interned raw bytes of group 8
    RecordType type = RecordType::Other;
    Section section = Section::None;
    uint8_t flags = 0;
};

enum RecordFlag : uint8_t {
    kErased = 1,
    kOverlaid = 2,  // its bytes are no longer those of the file
    kInserted = 4,
    kPaperSpace = 8,     // group 67 is 1
    kMemoryHandle = 16,  // the handle was given in memory and is never written
    kDuplicateHandle = 32,
    kHasEmbedded = 64,  // holds a 101 group (embedded object)
    kFollowed = 128     // inserted records come next
};

}  // namespace dxf
