// Translated lines written into a drawing, saved and reported.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/Saving.h"
#include "apps/cli/TextWriter.h"

namespace cli {

struct WriteOptions {
    SaveOptions save;
    bool record = false;  // each object's texts, and the project's language
};
void AddWriteOptions(CLI::App& command, WriteOptions& write);

struct Report {
    size_t objects = 0, lines = 0, translated = 0;
    std::vector<Unwritten> unwritten;
    size_t written = 0;
    std::optional<Certificate> certificate;  // none when nothing was saved
};

// Throws cli::Error for a drawing that cannot hold what would be written.
void RequireWritable(Session& session, const WriteOptions& write);

// Writes the translations into the session's drawing and, if an output is named, saves it with the
// certificate. The untranslated lines and all objects are gone afterwards.
class TranslatedDrawing {
  public:
    TranslatedDrawing(Session& session, TranslationTable& table, const WriteOptions& write,
                      Progress& progress);
    // Calls tell once the report is complete, before the new drawing takes its place: what it
    // throws leaves the output as it was.
    void Save(const std::function<void()>& tell);
    const Report& GetReport() const { return report; }

  private:
    void Write(TranslationTable& table);

    Session& session;
    const WriteOptions& write;
    Progress& progress;
    Report report;
    Expectation expectation;
};

void PrintReport(Output& output, const Report& report);
QJsonObject ToJson(const Report& report);

}  // namespace cli
