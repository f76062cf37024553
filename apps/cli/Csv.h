// Tables as text: UTF-8, fields in quotes where needed, as RFC 4180 has it.
#pragma once

#include <QSaveFile>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

using CsvRow = std::vector<std::string>;

// The rows of a text, empty lines left out. The separator is the comma, or the semicolon or the tab
// if one of these comes first in the first row. Throws cli::Error with the line for a quote that is
// not closed, and for text that is not UTF-8.
std::vector<CsvRow> ParseCsv(std::string_view text);

// The same for a file; "-" is standard input. Errors name the file.
std::vector<CsvRow> ReadCsv(const std::string& path);

std::string CsvLine(const CsvRow& row);  // with commas and CR LF

// Writes a whole file or leaves the one that was there. Opened first, so that a target that cannot
// be written is known before the work, and committed last.
class CsvFile {
  public:
    explicit CsvFile(const std::string& path);  // throws cli::Error
    void Add(const CsvRow& row);
    void Commit();  // throws cli::Error; without it nothing is written

  private:
    void Fail();

    QSaveFile file;
    std::string buffer;
};

}  // namespace cli
