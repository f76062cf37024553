// kelvara import: writes the translations of an exchange file into a drawing and certifies it.
#include <sstream>

#include "apps/cli/Csv.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Paths.h"
#include "apps/cli/TranslatedDrawing.h"
#include "translator/dialogs/IntercambioCsv.h"

namespace cli {

namespace {

using traducaoTQ::structImportacao;

struct Arguments {
    std::string drawing, file;
    ScanOptions scan;
    LanguageOptions languages;
    WriteOptions write;
    bool utf8 = false;
};

structImportacao Take(const Arguments& arguments, TranslationTable& table) {
    std::istringstream bytes(ReadTable(arguments.file));
    return traducaoTQ::ImportarCsv(bytes, table.table.expressoes.get(),
                                   arguments.utf8 ? CP_UTF8 : CP_ACP);
}

QJsonObject ToJson(const structImportacao& rows, const Report& report) {
    QJsonObject object = ToJson(report);
    object["taken"] = static_cast<qint64>(rows.tomadas);
    object["unknown"] = static_cast<qint64>(rows.desconhecidas);
    object["empty"] = static_cast<qint64>(rows.vazias);
    object["duplicate"] = static_cast<qint64>(rows.repetidas);
    object["tooLong"] = rows.longa ? 1 : 0;
    if (rows.longa) object["endedAtRow"] = static_cast<qint64>(*rows.longa);
    return object;
}

void PrintRows(Output& output, const structImportacao& rows) {
    output.Line("taken         " + std::to_string(rows.tomadas));
    output.Line("unknown       " + std::to_string(rows.desconhecidas));
    output.Line("empty         " + std::to_string(rows.vazias));
    output.Line("duplicate     " + std::to_string(rows.repetidas));
    if (!rows.longa) return output.Line("too long      0");
    output.Line("too long      1  row " + std::to_string(*rows.longa) +
                " has a text of more than " + std::to_string(traducaoTQ::kMaxBytesCampo) +
                " bytes; it and the rows behind it were not taken");
}

void RequireSensible(const GeneralOptions& general, const Arguments& arguments) {
    if (arguments.drawing == kStandardStream && arguments.file == kStandardStream) {
        throw WrongUsage(
            "the drawing and the file cannot both come from standard input; name a file");
    }
    const NamedFile output{"the new drawing", arguments.write.save.output};
    RequireApart(output, {{"the dictionary", DatabaseFileOf(general)}});
    RequireApart({"the exchange file", arguments.file},
                 {{"the drawing", arguments.drawing}, output});
}

void Print(const GeneralOptions& general, const Arguments& arguments, const structImportacao& rows,
           const Report& report) {
    Output output(general, arguments.write.save.output == kStandardStream);
    if (output.Json()) {
        output.Object(ToJson(rows, report));
    } else {
        PrintRows(output, rows);
        PrintReport(output, report);
    }
    output.Finish();
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    RequireSensible(general, arguments);
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    session.OpenDatabase();
    Dictionary dictionary{Languages().All(), nullptr};
    session.OpenDrawing(arguments.drawing);
    RequireWritable(session, arguments.write);
    TranslationTable table =
        MakeTable(session, std::move(dictionary), Scan(session, arguments.scan).Run(),
                  arguments.languages, Keep::AllLanguages);
    const structImportacao rows = Take(arguments, table);
    TranslatedDrawing translated(session, table, arguments.write, progress);
    translated.Save([&] {
        progress.End();
        Print(general, arguments, rows, translated.GetReport());
    });
}

}  // namespace

void RegisterImport(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "import",
                                 "Translates a drawing with a file that export wrote and a "
                                 "translator filled; texts that the file lacks stay",
                                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    AddExchangeFile(*command, arguments->file, arguments->utf8, "- reads standard input");
    AddLanguageOptions(*command, arguments->languages);
    command->get_option("--to")->required();
    AddWriteOptions(*command, arguments->write);
    AddScanOptions(*command, arguments->scan);
}

}  // namespace cli
