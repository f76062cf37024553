// kelvara lines: the translation table of a drawing.
#include "apps/cli/Output.h"
#include "apps/cli/TranslationTable.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    ScanOptions scan;
    LanguageOptions languages;
};

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    const TranslationTable lines =
        ReadTable(session, arguments.drawing, arguments.scan, arguments.languages, progress);
    progress.End();
    Table table({{"state"}, {"original"}, {"translation"}, {"objects", true}});
    for (const auto& line : lines.Lines()) {
        table.Add({StateOf(*line), Utf8(line->original), Utf8(line->traducao),
                   std::to_string(line->objetos.size())});
    }
    Output output(general);
    table.Print(output);
    output.Finish();
}

}  // namespace

void RegisterLines(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(
        line.app, "lines", "The translation table: state, original, translation, number of objects",
        [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    AddLanguageOptions(*command, arguments->languages);
    AddScanOptions(*command, arguments->scan);
}

}  // namespace cli
