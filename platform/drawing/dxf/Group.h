// Groups: pairs of a code and a value, read from and written to records in either file format.
#pragma once

#include <climits>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/drawing/dxf/Record.h"

namespace dxf {

// What a file is refused or a change rejected for; what() is one line: what, where, why, what to
// do.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A file that is not overwritten because it is no longer the one that was read or saved.
class FileChanged : public Error {
  public:
    using Error::Error;
};

enum class ValueKind : uint8_t { String, Double, Int16, Int32, Int64, Bool, Binary };
ValueKind KindOfCode(int code);  // by the code ranges of the DXF reference

inline constexpr int kNoCode = INT_MIN;
// The number of a code line: blanks or tabs around an optional sign and digits; kNoCode for all
// else.
int ParseCode(std::string_view line);
uint64_t ParseHandle(std::string_view value);  // hexadecimal, blanks around it; 0 for what is none

// One group. value is the raw value: in ASCII the line without its line end (blanks kept), in
// binary the string without its terminator or the little-endian bytes of the number.
struct Group {
    int code = -1;
    Format format = Format::Ascii;
    std::string_view value;
    uint64_t begin = 0;  // offset of the group's first byte inside the record
    uint64_t end = 0;    // one past its last byte, line end included

    bool IsString() const { return KindOfCode(code) == ValueKind::String; }
    int64_t AsInt() const;  // 0 for what is no number
    double AsDouble() const;
    uint64_t AsHandle() const;  // hexadecimal digits; 0 for none
};

// Walks the groups of one record, or of any run of whole groups up to a whole file. Tolerates what
// the indexing pass tolerates: a line that should be a group code and is no number is passed over.
class GroupReader {
  public:
    GroupReader() = default;
    // lineEnd: the byte that ends a line, '\r' in files that know no '\n'.
    GroupReader(Format format, bool wideCodes, std::string_view record, uint64_t from = 0,
                char lineEnd = '\n');
    bool Next(Group& group);  // false at the end of the record, and where it breaks off
    bool Broken() const { return broken; }  // the bytes ended inside a group
    uint64_t Position() const { return position; }

  private:
    bool NextAscii(Group& group);
    bool NextBinary(Group& group);
    void FindNearEnds(uint64_t begin, uint64_t& first, uint64_t& second) const;
    uint64_t LineEnd(uint64_t from) const;

    std::string_view record;
    uint64_t position = 0;
    Format format = Format::Ascii;
    bool wideCodes = true;  // binary files from R13 on have group codes of two bytes
    char lineEnd = '\n';
    bool broken = false;
};

// A text of several lines has a group for every so many encoded bytes.
inline constexpr size_t kTextChunk = 250;

// Throws Error for a value that would end its line, or its string, too early.
void RefuseLineEnds(int code, std::string_view value, Format format);

// Builds groups as bytes of the file's format. Strings are given encoded (TextCodec::Encode).
class GroupWriter {
  public:
    GroupWriter(Format format, bool wideCodes, std::string_view lineEnd);
    GroupWriter& String(int code, std::string_view encoded);
    GroupWriter& Int(int code, int64_t value);
    GroupWriter& Double(int code, double value);
    GroupWriter& Handle(int code, uint64_t handle);
    GroupWriter& Raw(std::string_view bytes);               // whole groups, as they stand
    GroupWriter& Chunk(int code, std::string_view binary);  // 310, 1004
    std::string Take();

  private:
    void Code(int code);
    Format format;
    bool wideCodes;
    std::string lineEnd;
    std::string bytes;
};

}  // namespace dxf
