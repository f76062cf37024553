// What the commands print: results, tables, reports and messages.
#pragma once

#include <QJsonObject>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/Options.h"

namespace cli {

std::string Utf8(std::u16string_view text);  // what UTF-8 cannot hold becomes U+FFFD
std::u16string Utf16(std::string_view text);

// Tab, CR, LF and backslash as \t \r \n \\.
std::string Escaped(std::string_view text);

// The name of standard input or output where a file is asked for.
inline constexpr const char* kStandardStream = "-";

// Columns that a text takes on a terminal: 2 for wide characters of East Asia, 0 for marks that
// combine with the character ahead.
int DisplayWidth(std::string_view utf8);

// Where the result of a command goes. A result that cannot be written is an error of the command.
class Output {
  public:
    // With drawingOnStdout the result goes to stderr, since stdout carries the drawing.
    explicit Output(const GeneralOptions& options, bool drawingOnStdout = false);

    std::FILE* Result() const { return result; }
    bool Json() const { return json; }
    bool Heading() const { return heading; }  // a person reads the tables

    void Line(const std::string& text);          // one line of the result
    void Object(const QJsonObject& object);      // a whole result
    void Note(const std::string& text) const;    // a message on stderr, unless --quiet
    void Detail(const std::string& text) const;  // the same, with --verbose only
    void Finish();  // throws cli::Error when not everything could be written

  private:
    std::FILE* result;
    bool quiet, verbose, json, heading;
};

// A table of texts: aligned columns, or an array of objects with --json. Cells that are numbers are
// aligned to the right.
class Table {
  public:
    struct Column {
        std::string name;  // the heading, and the name in JSON
        bool number = false;
    };
    explicit Table(std::vector<Column> columns) : columns(std::move(columns)) {}

    void Add(std::vector<std::string> row) { rows.push_back(std::move(row)); }
    void Print(Output& output) const;

  private:
    void PrintAligned(Output& output) const;
    void PrintRow(std::FILE* file, const std::vector<std::string>& cells,
                  const std::vector<int>& widths) const;
    void PrintJson(Output& output) const;

    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;
};

// Prints an array of objects one by one, so that a long one needs no memory.
class JsonArray {
  public:
    explicit JsonArray(std::FILE* file);
    ~JsonArray();
    JsonArray(const JsonArray&) = delete;
    JsonArray& operator=(const JsonArray&) = delete;
    void Add(const QJsonObject& object);

  private:
    std::FILE* file;
    bool first = true;
};

}  // namespace cli
