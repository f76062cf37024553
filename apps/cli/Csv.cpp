// Reading and writing of CSV.
#include "apps/cli/Csv.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "platform/drawing/dxf/SaveFile.h"

namespace cli {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char SeparatorOf(std::string_view text) {
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == ',' || c == ';' || c == '\t') return c;
        if (c == '\n') break;
    }
    return ',';
}

void CheckUtf8(std::string_view text) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString decoded =
        decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    if (decoder.hasError()) throw Error("the text is not UTF-8; save the table as UTF-8");
}

class Parser {
  public:
    explicit Parser(std::string_view text) : text(text), separator(SeparatorOf(text)) {}

    std::vector<CsvRow> Run() {
        while (position < text.size()) {
            CsvRow row = Row();
            if (row.size() > 1 || !row[0].empty()) rows.push_back(std::move(row));
        }
        return std::move(rows);
    }

  private:
    CsvRow Row() {
        CsvRow row{Field()};
        while (position < text.size() && text[position] == separator) {
            ++position;
            row.push_back(Field());
        }
        if (position < text.size() && text[position] == '\r') ++position;
        if (position < text.size() && text[position] == '\n') ++position;
        ++line;
        return row;
    }

    std::string Field() {
        std::string field;
        if (position < text.size() && text[position] == '"') field = Quoted();
        while (position < text.size() && !EndsField(text[position])) field += text[position++];
        return field;
    }

    bool EndsField(char c) const { return c == separator || c == '\r' || c == '\n'; }

    std::string Quoted() {
        const size_t opened = line;
        std::string field;
        for (++position; position < text.size(); ++position) {
            if (text[position] == '"') {
                ++position;
                if (position >= text.size() || text[position] != '"') return field;
            }
            if (text[position] == '\n') ++line;
            field += text[position];
        }
        throw Error("line " + std::to_string(opened) + ": a quote is not closed; close it");
    }

    std::string_view text;
    char separator;
    size_t position = 0;
    size_t line = 1;
    std::vector<CsvRow> rows;
};

// A disk that is full may say so only here.
void Sync(const std::string& path, const std::string& temporary) {
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CLOEXEC);
    const int error = file >= 0 && ::fsync(file) == 0 ? 0 : errno;
    if (file >= 0) ::close(file);
    if (error) throw Error(path + ": the file cannot be written: " + std::strerror(error));
}

}  // namespace

std::vector<CsvRow> ParseCsv(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    CheckUtf8(text);
    return Parser(text).Run();
}

std::string ReadTable(const std::string& path) {
    QFile file(QString::fromStdString(path));
    const bool opened = path == kStandardStream ? file.open(0, QIODevice::ReadOnly)
                                                : file.open(QIODevice::ReadOnly);
    const QByteArray bytes = opened ? file.readAll() : QByteArray();
    if (file.error() != QFile::NoError) {
        throw Error("cannot read the table " + path + ": " + file.errorString().toStdString());
    }
    return bytes.toStdString();
}

std::vector<CsvRow> ReadCsv(const std::string& path) {
    const std::string bytes = ReadTable(path);
    try {
        return ParseCsv(bytes);
    } catch (const Error& error) {
        throw Error("cannot read the table " + path + ": " + error.what());
    }
}

std::string CsvLine(const CsvRow& row) {
    std::string line;
    for (size_t i = 0; i < row.size(); ++i) {
        if (i > 0) line += ',';
        const bool plain = row[i].find_first_of(",;\t\"\r\n") == std::string::npos;
        if (plain) {
            line += row[i];
            continue;
        }
        line += '"';
        for (const char c : row[i]) line.append(c == '"' ? 2 : 1, c);
        line += '"';
    }
    return line + "\r\n";
}

void WriteTable(const std::string& path, const std::string& bytes,
                const std::function<void()>& together) {
    if (path != kStandardStream) {
        const auto sync = [&](const std::string& temporary) {
            Sync(path, temporary);
            if (together) together();
        };
        dxf::ReplaceFile(
            path, [&](const dxf::Sink& sink) { sink(bytes); }, sync);
        return;
    }
    errno = 0;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (!written || std::fflush(stdout) != 0) {
        throw Error(std::string("cannot write the table to standard output: ") +
                    std::strerror(errno ? errno : EIO));
    }
    if (together) together();
}

}  // namespace cli
