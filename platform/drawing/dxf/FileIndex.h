// What one pass over a file finds.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/drawing/dxf/Buffer.h"
#include "platform/drawing/dxf/Finding.h"
#include "platform/drawing/dxf/HeaderVariables.h"
#include "platform/drawing/dxf/LayerNames.h"
#include "platform/drawing/dxf/RecordBuilder.h"
#include "platform/drawing/dxf/RecordTable.h"

namespace dxf {

struct FileIndex {
    Format format = Format::Ascii;
    bool wideCodes = true;
    char lineEnd = '\n';
    uint64_t bodyBegin = 0;  // behind a byte order mark or the sentinel of a binary file
    uint64_t bodyEnd = 0;    // behind the last record
    RecordTable records;     // each ends where the next begins
    LayerNames layers;
    HeaderVariables header;
    std::vector<Finding> findings;
};

// Returns when the first `end` bytes of the file are there: it may be indexed while it is read.
using Await = std::function<void(size_t end)>;

// Tells format and line ends from the first bytes. Throws Error for an empty or foreign file.
void RecogniseFile(const Buffer& file, FileIndex& index, const Await& await);
// Fill the index; each throws Error for a file that cannot be read at all.
void IndexAscii(const Buffer& file, FileIndex& index, const Await& await);
void IndexBinary(const Buffer& file, FileIndex& index, const Await& await);

// Takes the records of a file in their order and follows its sections.
class IndexBuilder {
  public:
    IndexBuilder(const Buffer& file, FileIndex& index)
        : file(file),
          index(index),
          builder(index.format, index.layers),
          limit(RecordLimit(file.Size())) {}

    void Start(uint64_t offset, std::string_view typeName);
    void Take(Action action, std::string_view value, uint64_t offset) {
        if (open) builder.Take(action, value, offset);
    }
    void Finish(uint64_t offset);  // closes the last record
    bool SeenRecord() const { return open || index.records.Count() != 0; }

  private:
    static uint64_t RecordLimit(uint64_t fileSize);
    void Close(uint64_t offset);
    void CheckSectionEnded(uint64_t offset);
    void EnterSection(Record& record);

    const Buffer& file;
    FileIndex& index;
    RecordBuilder builder;
    uint64_t limit;
    bool open = false;
    bool seenSection = false;
    Section section = Section::None;
};

}  // namespace dxf
