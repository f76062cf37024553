// The comparison of one stretch of a saved drawing with the same stretch of the file before.
#pragma once

#include <atomic>
#include <span>

#include "apps/cli/Certificate.h"
#include "apps/cli/CertificateRecords.h"

namespace cli {

// Both ends of a stretch are ends of a file, or places where a record begins in both files.
struct Stretch {
    dxf::RecordIndex first = 0, last = 0;  // records of the file before; last is one past the end
    size_t beforeBegin = 0, beforeEnd = 0;
    size_t afterBegin = 0, afterEnd = 0;
};

// Which of the expected texts were found, by any of the comparisons of one file.
using Found = std::vector<std::atomic<bool>>;

// Told up to where the two files have been compared.
using Passed = std::function<void(size_t before, size_t after)>;

void SortByHandle(std::vector<ExpectedText>& texts);

// Equal ranges are skipped as bytes: two ranges that are equal and begin at a record hold equal
// groups. Only records that differ are read. Two stretches may be compared on two threads.
class Comparison {
  public:
    // The texts of the expectation are sorted by handle. It and what was found of it must live as
    // long as the comparison.
    Comparison(const dxf::Store& store, std::string_view after, const Expectation& expectation,
               Found& found, Stretch stretch, Passed passed);

    void Run();
    bool FoundOthers() const { return result.others > 0; }
    void Add(const Comparison& next);  // what the comparison of the stretch behind this one found
    Certificate Conclude();            // once all stretches are in

  private:
    bool SkipEqual();
    bool ReadTexts();
    bool Differ();
    bool StepBack();
    bool CompareChanged(dxf::RecordIndex index);
    void CompareTexts(uint64_t handle);
    std::span<const ExpectedText> TextsOf(uint64_t handle);
    void FetchAhead(size_t next) const;
    bool IsExpected(uint64_t handle, const Item& old, const Item& now);
    bool Matches(const ExpectedText& text, const Item& old, const Item& now) const;
    bool ReadFields(const Item& old, const Item& now);
    bool FieldsMatch(const ExpectedText& text) const;                 // of the strings read last
    bool HeldText(const Item& item, std::u16string_view text) const;  // between blanks
    bool HoldsText(const Item& item, std::u16string_view text) const;
    bool Says(const Item& item, std::u16string_view text) const;
    bool IsNew(uint64_t handle) const;
    uint64_t Start(dxf::RecordIndex index) const { return store.At(index).offset; }
    void Other(const std::string& where);
    void OtherIn(const RawRecord& record, const char* what);

    const dxf::Store& store;
    const std::string_view before, after;  // up to the end of the stretch
    const std::vector<ExpectedText>& texts;
    std::span<const ExpectedText> present;  // of the object that was asked for last
    Found& found;
    WrittenRecords records;
    Passed passed;

    const dxf::RecordIndex first, last;
    size_t b, a;                          // up to here both files have been compared
    dxf::RecordIndex index;               // the last record that begins at or before b
    size_t same = 0;                      // bytes at the begin of the records that differ now
    RawRecord oldRecord, newRecord;       // those that differ now
    std::u16string oldString, newString;  // of extended data, and their translated fields
    std::u16string_view oldField, newField;
    Certificate result;
};

}  // namespace cli
