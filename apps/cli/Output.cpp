// Printing of results.
#include "apps/cli/Output.h"

#include <unistd.h>

#include <QJsonDocument>
#include <cerrno>
#include <cstring>

#include "apps/cli/Failure.h"

namespace cli {

std::string Utf8(std::u16string_view text) { return QStringView(text).toUtf8().toStdString(); }

std::u16string Utf16(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdU16String();
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '\t':
                escaped += "\\t";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\\':
                escaped += "\\\\";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

Output::Output(const GeneralOptions& options, bool drawingOnStdout)
    : result(drawingOnStdout ? stderr : stdout),
      quiet(options.quiet),
      verbose(options.verbose),
      json(options.json),
      heading(isatty(fileno(result)) != 0) {}

void Output::Line(const std::string& text) { std::fprintf(result, "%s\n", text.c_str()); }

void Output::Object(const QJsonObject& object) {
    std::fputs(QJsonDocument(object).toJson(QJsonDocument::Indented).constData(), result);
}

void Output::Note(const std::string& text) const {
    if (!quiet) std::fprintf(stderr, "%s\n", text.c_str());
}

void Output::Detail(const std::string& text) const {
    if (verbose) std::fprintf(stderr, "%s\n", text.c_str());
}

void Output::Finish() {
    errno = 0;
    if (std::fflush(result) == 0 && !std::ferror(result)) return;
    throw Error(std::string("cannot write the result to standard output: ") +
                std::strerror(errno ? errno : EIO));
}

void Table::Print(Output& output) const {
    if (output.Json()) {
        PrintJson(output);
    } else {
        PrintAligned(output);
    }
}

void Table::PrintRow(std::FILE* file, const std::vector<std::string>& cells,
                     const std::vector<int>& widths) const {
    std::string line;
    for (size_t i = 0; i < cells.size(); ++i) {
        const auto missing = std::max(0, widths[i] - DisplayWidth(cells[i]));
        const std::string blanks(static_cast<size_t>(missing), ' ');
        if (i > 0) line += "  ";
        const bool last = i + 1 == cells.size();
        line += columns[i].number ? blanks + cells[i] : cells[i] + (last ? "" : blanks);
    }
    std::fprintf(file, "%s\n", line.c_str());
}

void Table::PrintAligned(Output& output) const {
    constexpr int kWidest = 60;  // a longer text pushes the rest of its own row only
    std::vector<std::vector<std::string>> cells;
    if (output.Heading()) {
        cells.emplace_back();
        for (const Column& column : columns) cells[0].push_back(column.name);
    }
    for (const auto& row : rows) {
        cells.emplace_back();
        for (const std::string& cell : row) cells.back().push_back(Escaped(cell));
    }
    std::vector<int> widths(columns.size(), 0);
    for (const auto& row : cells) {
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(kWidest, DisplayWidth(row[i])));
        }
    }
    for (const auto& row : cells) PrintRow(output.Result(), row, widths);
}

void Table::PrintJson(Output& output) const {
    JsonArray array(output.Result());
    for (const auto& row : rows) {
        QJsonObject object;
        for (size_t i = 0; i < row.size(); ++i) {
            const QString text = QString::fromStdString(row[i]);
            object[QString::fromStdString(columns[i].name)] =
                columns[i].number ? QJsonValue(text.toLongLong()) : QJsonValue(text);
        }
        array.Add(object);
    }
}

JsonArray::JsonArray(std::FILE* file) : file(file) { std::fputs("[", file); }

JsonArray::~JsonArray() { std::fputs("\n]\n", file); }

void JsonArray::Add(const QJsonObject& object) {
    std::fputs(first ? "\n" : ",\n", file);
    first = false;
    std::fputs(QJsonDocument(object).toJson(QJsonDocument::Compact).constData(), file);
}

}  // namespace cli
