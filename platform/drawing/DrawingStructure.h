// Where the parts of a drawing begin and end: one pass over the records after reading.
#pragma once

#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Store.h"

struct DrawingStructure {
    struct Table {
        dxf::RecordIndex table = dxf::kNoRecord;
        dxf::RecordIndex end = dxf::kNoRecord;  // its ENDTAB
        std::vector<dxf::RecordIndex> records;  // those of the file
    };
    struct Block {
        dxf::RecordIndex begin;
        dxf::RecordIndex end;  // the ENDBLK, or what stands in its place
    };

    explicit DrawingStructure(const dxf::Store& store);

    Table layers, blockRecords, applications;
    Table linetypes, textStyles, dimStyles;  // without their records
    std::vector<Block> blocks;
    dxf::RecordIndex tablesEnd = dxf::kNoRecord;      // the ENDSEC
    dxf::RecordIndex blocksEnd = dxf::kNoRecord;      // the ENDSEC
    dxf::RecordIndex classesEnd = dxf::kNoRecord;     // the ENDSEC
    dxf::RecordIndex headerEnd = dxf::kNoRecord;      // the ENDSEC
    dxf::RecordIndex entitiesBegin = dxf::kNoRecord;  // the SECTION
    dxf::RecordIndex entitiesEnd = dxf::kNoRecord;
    dxf::RecordIndex objectsBegin = dxf::kNoRecord;
    dxf::RecordIndex objectsEnd = dxf::kNoRecord;
    dxf::RecordIndex lastSectionEnd = dxf::kNoRecord;
    dxf::RecordIndex rootDictionary = dxf::kNoRecord;
    uint64_t highestHandle = 0;
    std::vector<dxf::RecordIndex> withoutHandle;  // objects that have none of their own

  private:
    void sectionBegins(const dxf::Store& store, dxf::RecordIndex index);
    void sectionEnds(dxf::RecordIndex index);
    dxf::RecordType recordTypeOf(const Table& of) const;
    void tableRecord(const dxf::Store& store, dxf::RecordIndex index);
    void blockRecord(const dxf::Store& store, dxf::RecordIndex index);

    dxf::Section section = dxf::Section::None;
    Table* table = nullptr;
    bool blockOpen = false;
};

// Whether a record is an object of the drawing, as against a mark of the file's structure.
bool IsObjectRecord(const dxf::Record& record);
