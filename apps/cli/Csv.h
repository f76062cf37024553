// Tables as text: UTF-8, fields in quotes where needed, as RFC 4180 has it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

using CsvRow = std::vector<std::string>;

// The rows of a text, empty lines left out. The separator is the comma, or the semicolon or the tab
// if one of these comes first in the first row. Throws cli::Error with the line for a quote that is
// not closed, and for text that is not UTF-8.
std::vector<CsvRow> ParseCsv(std::string_view text);

// The bytes of a file; "-" is standard input. Throws cli::Error.
std::string ReadTable(const std::string& path);

// Both; errors name the file.
std::vector<CsvRow> ReadCsv(const std::string& path);

std::string CsvLine(const CsvRow& row);  // with commas and CR LF

// Writes a whole table to a file, or leaves the one that was there; "-" is standard output. What is
// to come about together with it is done when the new file is on the disk and not yet in its place:
// if that throws, nothing is written. Throws when the table cannot be written.
void WriteTable(const std::string& path, const std::string& bytes,
                const std::function<void()>& together = {});

}  // namespace cli
