// kelvara copy: opens a drawing and saves it; what comes out is the same byte for byte.
#include <algorithm>

#include "apps/cli/Failure.h"
#include "apps/cli/MappedFile.h"
#include "apps/cli/Output.h"
#include "apps/cli/Saving.h"

namespace cli {

namespace {

struct Arguments {
    std::string in;
    SaveOptions save;
};

void RequireSameBytes(const dxf::Store& store, const std::string& path) {
    if (MappedFile(path).Bytes() == store.Original()) return;
    throw Error("the copy differs from the drawing; the output was left as it was");
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    const OdDbDatabase& drawing = session.OpenDrawing(arguments.in);
    progress.Phase("saving");
    SaveDrawing(session, arguments.save,
                [&](const std::string& path) { RequireSameBytes(drawing.store(), path); });
    progress.End();
    Output(general).Detail(arguments.in + " copied to " + arguments.save.output);
}

}  // namespace

void RegisterCopy(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "copy",
                                 "Opens a drawing and saves it; the copy is the same byte for byte",
                                 [&line, arguments] { Run(line.general, *arguments); });
    command->add_option("IN", arguments->in, "ASCII or binary DXF; - reads standard input")
        ->required()
        ->check(kNotEmpty);
    command->add_option("OUT", arguments->save.output, "The copy; - writes standard output")
        ->required()
        ->check(kNotEmpty);
    command->add_flag("--force", arguments->save.force,
                      "Replace the input even if another program has changed it meanwhile");
}

}  // namespace cli
