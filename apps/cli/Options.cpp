// The command line as a whole, and the options that several commands share.
#include "apps/cli/Options.h"

namespace cli {

namespace {

constexpr const char* kFooter =
    "Tables have a heading only on a terminal. In texts and tables tab, CR, LF and backslash are\n"
    "written \\t \\r \\n \\\\. Exit status: 0 done, 1 the work could not be done, 2 wrong usage.";

}  // namespace

CommandLine::CommandLine()
    : app("Translates the texts of electrical project drawings.", "kelvara") {
    app.set_version_flag("--version", std::string("kelvara ") + KELVARA_VERSION);
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(kFooter);
    app.failure_message([](const CLI::App* failed, const CLI::Error& error) {
        std::string name = "kelvara";
        if (!failed->get_subcommands().empty())
            name += " " + failed->get_subcommands()[0]->get_name();
        return "kelvara: " + std::string(error.what()) + "; see '" + name + " --help'\n";
    });
    app.add_flag("-q,--quiet", general.quiet, "No messages and no progress");
    app.add_flag("-v,--verbose", general.verbose, "More messages, and the log of the host");
    app.add_flag("--json", general.json, "Print tables and reports as JSON");
    app.add_option("--database", general.database,
                   "The dictionary, sqlite:FILE or postgresql://USER@HOST/NAME (default: "
                   "$KELVARA_DATABASE, else a file in the user's data folder)");
}

CLI::App* CommandLine::Add(CLI::App& parent, const std::string& name, const std::string& help,
                           std::function<void()> work) {
    CLI::App* command = parent.add_subcommand(name, help);
    command->fallthrough();
    command->callback([this, work = std::move(work)] { action = work; });
    return command;
}

void AddDrawing(CLI::App& command, std::string& drawing) {
    command.add_option("DRAWING", drawing, "ASCII or binary DXF; - reads standard input")
        ->required();
}

void AddScanOptions(CLI::App& command, ScanOptions& scan) {
    command.add_option("--pages", scan.pages,
                       "Only these pages (names separated by commas), with their layers $DE, $SELO "
                       "and $FORMATO; default: every layer but \"0\" and \"tq_freeze\"");
    command.add_flag("--no-texts", scan.noTexts, "Without texts, mtexts and texts in blocks");
    command.add_flag("--no-attributes", scan.noAttributes, "Without attributes and wires");
    auto* strict = command.add_flag("--strict", scan.strict,
                                    "The scan of the CAD commands: fails at the first entity of a "
                                    "page that is no block reference");
    command.add_flag("--layer-0", scan.layer0, "Layer \"0\" counts as a page too")
        ->excludes(strict);
}

void AddLanguageOptions(CLI::App& command, LanguageOptions& languages) {
    command.add_option("--from", languages.from,
                       "Language of the drawing, by key or by name (default: the project's, else "
                       "the first in use)");
    command.add_option("--to", languages.to, "Language to translate into, by key or by name");
}

void AddSaveOptions(CLI::App& command, SaveOptions& save) {
    command.add_option("-o,--output", save.output,
                       "The new drawing; - writes standard output, and the report goes to stderr; "
                       "may name the input");
    command.add_flag("--force", save.force,
                     "Replace the input even if another program has changed it meanwhile");
}

std::vector<std::string> SplitList(const std::string& list) {
    std::vector<std::string> parts;
    for (size_t begin = 0; begin <= list.size();) {
        const size_t end = std::min(list.find(',', begin), list.size());
        if (end > begin) parts.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

}  // namespace cli
