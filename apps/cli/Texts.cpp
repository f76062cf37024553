// kelvara texts: every translatable of a drawing, in scan order.
#include <QJsonObject>

#include "apps/cli/Output.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Scan.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    ScanOptions scan;
};

QJsonObject ToJson(const traducaoTQ::ETraduzivel& object) {
    const std::string_view kind = traducaoTQ::NomeTipo(object.GetTipo());
    return {{"kind", QString::fromUtf8(kind.data(), static_cast<qsizetype>(kind.size()))},
            {"key", QString(object.GetChave())},
            {"text", QString::fromStdU16String(*object.GetTexto())}};
}

void PrintLine(Output& output, const traducaoTQ::ETraduzivel& object) {
    const std::string_view kind = traducaoTQ::NomeTipo(object.GetTipo());
    const std::string line = std::string(kind) + '\t' + Escaped(Utf8(object.GetChave())) + '\t' +
                             Escaped(Utf8(*object.GetTexto())) + '\n';
    std::fwrite(line.data(), 1, line.size(), output.Result());
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    session.OpenDrawing(arguments.drawing);
    progress.Phase("scanning");
    const auto objects = Scan(session, arguments.scan).Run();
    progress.End();
    Output output(general);
    if (output.Json()) {
        JsonArray array(output.Result());
        for (const auto* object : *objects) array.Add(ToJson(*object));
    } else {
        for (const auto* object : *objects) PrintLine(output, *object);
    }
    output.Finish();
}

}  // namespace

void RegisterTexts(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(
        line.app, "texts",
        "Every text that can be translated, in scan order: kind, key and text, separated by tabs",
        [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    AddScanOptions(*command, arguments->scan);
}

}  // namespace cli
