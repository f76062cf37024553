// kelvara translate: writes the translations of the dictionary into a drawing and certifies it.
#include "apps/cli/Csv.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Paths.h"
#include "apps/cli/TranslatedDrawing.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    ScanOptions scan;
    LanguageOptions languages;
    WriteOptions write;
    std::string csv;

    bool FillsStdout() const {
        return write.save.output == kStandardStream || csv == kStandardStream;
    }
};

std::string ToCsv(const TranslationTable& table) {
    std::string csv = CsvLine({"state", "original", "translation", "objects"});
    for (const auto& line : table.Lines()) {
        csv += CsvLine({StateOf(*line), Utf8(line->original), Utf8(line->traducao),
                        std::to_string(line->objetos.size())});
    }
    return csv;
}

void RequireSensible(const GeneralOptions& general, const Arguments& arguments) {
    if (arguments.write.save.output == arguments.csv && arguments.FillsStdout()) {
        throw WrongUsage(
            "the drawing and the table cannot both go to standard output; name a file");
    }
    const NamedFile output{"the new drawing", arguments.write.save.output};
    const NamedFile dictionary{"the dictionary", DatabaseFileOf(general)};
    RequireApart(output, {dictionary});
    RequireApart({"the table", arguments.csv},
                 {{"the drawing", arguments.drawing}, output, dictionary});
}

void Print(const GeneralOptions& general, const Arguments& arguments, const Report& report) {
    Output output(general, arguments.FillsStdout());
    if (output.Json()) {
        output.Object(ToJson(report));
    } else {
        PrintReport(output, report);
    }
    output.Finish();
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    RequireSensible(general, arguments);
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    const Keep keep = arguments.write.record ? Keep::AllLanguages : Keep::SourceAndTarget;
    auto dictionary = ReadDictionary(session, arguments.languages, keep);
    session.OpenDrawing(arguments.drawing);
    RequireWritable(session, arguments.write);

    progress.Phase("scanning");
    auto objects = Scan(session, arguments.scan).Run();
    progress.Phase("matching");
    TranslationTable table =
        MakeTable(session, dictionary.Get(), std::move(objects), arguments.languages, keep);
    const std::string csv = arguments.csv.empty() ? std::string() : ToCsv(table);
    TranslatedDrawing translated(session, table, arguments.write, progress);
    const auto tell = [&] {
        progress.End();
        if (arguments.csv == kStandardStream) WriteTable(arguments.csv, csv);
        Print(general, arguments, translated.GetReport());
    };
    if (arguments.csv.empty() || arguments.csv == kStandardStream) {
        translated.Save(tell);
    } else {
        WriteTable(arguments.csv, csv, [&] { translated.Save(tell); });
    }
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
    AddWriteOptions(*command, arguments->write);
    AddScanOptions(*command, arguments->scan);
    command
        ->add_option("--csv", arguments->csv,
                     "Write the table of lines (state, original, translation, objects) to a "
                     "file, as UTF-8 CSV; - writes standard output")
        ->check(kNotEmpty);
}

}  // namespace cli
