// kelvara export: the lines of a translation as a file for a translator.
#include <sstream>

#include "apps/cli/Csv.h"
#include "apps/cli/Output.h"
#include "apps/cli/Paths.h"
#include "apps/cli/TranslationTable.h"
#include "translator/dialogs/IntercambioCsv.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing, file;
    ScanOptions scan;
    LanguageOptions languages;
    bool utf8 = false, untranslated = false;
};

void Warn(const Output& output, const traducaoTQ::ExportadorCsv& file) {
    if (file.CaracteresPerdidos() > 0) {
        output.Note("characters that the code page lacks became \"?\"; --utf8 holds every one");
    }
    if (file.LinhasSemVolta() > 0) {
        output.Note(
            "import will not take back rows whose text has a \";\" or a lost character, "
            "whose translation has a line end, or with more than " +
            std::to_string(traducaoTQ::kMaxBytesCampo) + " bytes in a field");
    }
}

void Print(Output& output, const traducaoTQ::ExportadorCsv& file, size_t translated,
           const std::string& page) {
    const size_t lost = file.CaracteresPerdidos();
    if (output.Json()) {
        output.Object({{"lines", static_cast<qint64>(file.Linhas())},
                       {"translated", static_cast<qint64>(translated)},
                       {"untranslated", static_cast<qint64>(file.Linhas() - translated)},
                       {"codePage", QString::fromStdString(page)},
                       {"charactersLost", static_cast<qint64>(lost)},
                       {"cannotReturn", static_cast<qint64>(file.LinhasSemVolta())}});
        return;
    }
    output.Line("lines            " + std::to_string(file.Linhas()));
    output.Line("translated       " + std::to_string(translated));
    output.Line("untranslated     " + std::to_string(file.Linhas() - translated));
    output.Line("code page        " + page);
    output.Line("characters lost  " + std::to_string(lost));
    output.Line("cannot return    " + std::to_string(file.LinhasSemVolta()));
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    RequireApart({"the exchange file", arguments.file},
                 {{"the drawing", arguments.drawing}, {"the dictionary", DatabaseFileOf(general)}});
    Progress progress(general);
    Session session(general);
    const TranslationTable table =
        ReadTable(session, arguments.drawing, arguments.scan, arguments.languages, progress);
    std::ostringstream bytes;
    traducaoTQ::ExportadorCsv file(bytes, arguments.utf8 ? CP_UTF8 : CP_ACP);
    size_t translated = 0;
    for (const auto& line : table.Lines()) {
        const bool has = line->estado != traducaoTQ::NaoTraduzido;
        if (has && arguments.untranslated) continue;
        file.Escrever(line->original, line->traducao);
        translated += has;
    }
    WriteTable(arguments.file, bytes.str(), [&] {
        progress.End();
        Output output(general, arguments.file == kStandardStream);
        Print(output, file, translated, arguments.utf8 ? "UTF-8" : std::to_string(GetACP()));
        output.Finish();
        Warn(output, file);
    });
}

}  // namespace

void RegisterExport(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        line.Add(line.app, "export",
                 "Writes the lines of a drawing to a file for a translator: text;translation",
                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    AddExchangeFile(*command, arguments->file, arguments->utf8, "- writes standard output");
    command->add_flag("--untranslated", arguments->untranslated,
                      "Only the lines without a translation");
    AddLanguageOptions(*command, arguments->languages);
    command->get_option("--to")->required();
    AddScanOptions(*command, arguments->scan);
}

}  // namespace cli
