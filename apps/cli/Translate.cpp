// kelvara translate: writes the translations of the dictionary into a drawing and certifies it.
#include <QJsonArray>
#include <optional>

#include "apps/cli/Csv.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Saving.h"
#include "apps/cli/TextWriter.h"
#include "apps/cli/TranslationRecords.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    ScanOptions scan;
    LanguageOptions languages;
    SaveOptions save;
    bool record = false;
    std::string csv;
};

struct Report {
    size_t objects = 0, lines = 0, translated = 0;
    std::vector<Unwritten> unwritten;
    size_t written = 0;
    std::optional<Certificate> certificate;  // none when nothing was saved
};

void CountLines(const TranslationTable& table, Report& report) {
    report.objects = table.objects->size();
    report.lines = table.Lines().size();
    for (const auto& line : table.Lines()) report.translated += IsTranslated(*line);
}

void WriteCsv(const TranslationTable& table, CsvFile& file) {
    file.Add({"state", "original", "translation", "objects"});
    for (const auto& line : table.Lines()) {
        file.Add({StateOf(*line), Utf8(line->original), Utf8(line->traducao),
                  std::to_string(line->objetos.size())});
    }
}

void RequireRecordable(Session& session) {
    if (session.Drawing().hasDictionaries()) return;
    throw Error(
        "--record: a drawing of R12 or older has no place for translation records; save it "
        "as R2000 or later, or leave --record out");
}

Expectation WriteAndRecord(const Arguments& arguments, Session& session, TranslationTable& table,
                           Progress& progress, Report& report) {
    progress.Phase("writing texts");
    OnWritten record;
    if (arguments.record) {
        record = [&table, &store = session.Drawing().store()](const traducaoTQ::ETraduzivel& object,
                                                              const structExpressao& line) {
            return RecordText(store, table, object, line);
        };
    } else {
        table.table.traducoes.reset();
    }
    Written written = WriteTexts(table, session.Drawing(), record, progress);
    report.unwritten = std::move(written.unwritten);
    report.written = written.texts.size();
    Expectation expectation;
    expectation.texts = std::move(written.texts);
    expectation.wires = true;
    if (arguments.record) {
        session.SetProjectLanguage(table.to->key.ToInt());
        expectation.recordKeys = RecordKeys();
    }
    return expectation;
}

QJsonObject ToJson(const Report& report) {
    QJsonArray unwritten;
    for (const Unwritten& text : report.unwritten) {
        unwritten.append(QJsonObject{{"kind", QString::fromStdString(text.kind)},
                                     {"key", QString::fromStdString(text.key)},
                                     {"text", QString::fromStdString(text.text)},
                                     {"reason", QString::fromStdString(text.reason)}});
    }
    QJsonObject object{{"objects", static_cast<qint64>(report.objects)},
                       {"lines", static_cast<qint64>(report.lines)},
                       {"translated", static_cast<qint64>(report.translated)},
                       {"untranslated", static_cast<qint64>(report.lines - report.translated)},
                       {"notWritten", unwritten},
                       {"saved", report.certificate.has_value()}};
    if (report.certificate) {
        object["stringsChanged"] = static_cast<qint64>(report.certificate->strings);
        object["otherValuesChanged"] = static_cast<qint64>(report.certificate->others);
        object["recordsWritten"] = static_cast<qint64>(report.certificate->records);
    }
    return object;
}

void PrintText(Output& output, const Report& report) {
    output.Line("objects       " + std::to_string(report.objects));
    output.Line("lines         " + std::to_string(report.lines));
    output.Line("translated    " + std::to_string(report.translated));
    output.Line("untranslated  " + std::to_string(report.lines - report.translated));
    output.Line("not written   " + std::to_string(report.unwritten.size()));
    for (const Unwritten& text : report.unwritten) {
        output.Line("  " + text.kind + " " + Escaped(text.key) + " \"" + Escaped(text.text) +
                    "\": " + Escaped(text.reason));
    }
    if (report.certificate) {
        output.Line("certificate   " + report.certificate->Line());
    } else {
        output.Line("nothing saved " + std::to_string(report.written) +
                    " texts would be written with -o");
    }
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    TranslationTable table = ReadDictionaryAndDrawing(session, arguments.drawing);
    RequireEditable(session);
    if (arguments.record) RequireRecordable(session);
    std::optional<CsvFile> csv;
    if (!arguments.csv.empty()) csv.emplace(arguments.csv);

    progress.Phase("scanning and matching");
    FillTable(table, session, Scan(session, arguments.scan), arguments.languages,
              arguments.record ? Keep::AllLanguages : Keep::SourceAndTarget);
    Report report;
    CountLines(table, report);
    if (csv) WriteCsv(table, *csv);
    Expectation expectation = WriteAndRecord(arguments, session, table, progress, report);
    if (!arguments.save.output.empty()) {
        report.certificate =
            SaveCertified(session, arguments.save, std::move(expectation), progress);
    }
    if (csv) csv->Commit();
    progress.Phase("reporting");
    Output output(general, arguments.save.output == kStandardOutput);
    if (output.Json()) {
        output.Object(ToJson(report));
    } else {
        PrintText(output, report);
    }
    output.Finish();
    progress.End();
    EndProcess();
}

}  // namespace

void RegisterTranslate(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "translate",
                                 "Translates a drawing with the dictionary, saves it, and "
                                 "certifies that nothing else changed",
                                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    AddLanguageOptions(*command, arguments->languages);
    command->get_option("--to")->required();
    AddSaveOptions(*command, arguments->save);
    AddScanOptions(*command, arguments->scan);
    command->add_flag("--record", arguments->record,
                      "Store each object's texts in the drawing, and set the project's language");
    command->add_option("--csv", arguments->csv,
                        "Write the table of lines (state, original, translation, objects) to a "
                        "file, as UTF-8 CSV");
}

}  // namespace cli
