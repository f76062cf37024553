// The command line as a whole, and the options that several commands share.
#include "apps/cli/Options.h"

namespace cli {

namespace {

constexpr const char* kFooter =
    "--quiet, --verbose, --json and --database URL stand before or behind every command.\n"
    "Tables have a heading only on a terminal. In texts and tables tab, CR, LF and backslash are\n"
    "written \\t \\r \\n \\\\. Exit status: 0 done, 1 the work could not be done, 2 wrong usage.";

const CLI::Validator kNamesSome(
    [](const std::string& list) { return SplitList(list).empty() ? "names no page" : ""; }, "");

std::string Complaint(const CLI::App& failed, const CLI::Error& error) {
    const std::vector<std::string> rest = failed.remaining(true);
    if (error.get_name() != "RequiredError" || rest.empty()) return error.what();
    return "unexpected \"" + rest.front() + "\": " + error.what();
}

}  // namespace

const CLI::Validator kNotEmpty(
    [](const std::string& value) { return value.empty() ? "an empty name was given" : ""; }, "");

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
        return "kelvara: " + Complaint(*failed, error) + "; see '" + name + " --help'\n";
    });
    app.add_flag("-q,--quiet", general.quiet, "No messages and no progress");
    app.add_flag("-v,--verbose", general.verbose,
                 "More messages, and the lines of the log on stderr");
    app.add_flag("--progress", general.progress,
                 "The progress bar also where stderr is no terminal, for a program that reads it");
    app.add_flag("--json", general.json, "Print tables and reports as JSON");
    app.add_option("--database", general.database,
                   "The dictionary, sqlite:FILE or postgresql://USER@HOST/NAME (default: "
                   "$KELVARA_DATABASE, else a file in the user's data folder)")
        ->check(kNotEmpty)
        ->type_name("URL");
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
        ->required()
        ->check(kNotEmpty)
        ->type_name("FILE");
}

void AddScanOptions(CLI::App& command, ScanOptions& scan) {
    command
        .add_option("--pages", scan.pages,
                    "Only these pages (names separated by commas), with their layers $DE, $SELO "
                    "and $FORMATO; default: every layer but \"0\" and \"tq_freeze\"")
        ->check(kNamesSome)
        ->type_name("A,B");
    command.add_flag("--no-texts", scan.noTexts, "Without texts, mtexts and texts in blocks");
    command.add_flag("--no-attributes", scan.noAttributes, "Without attributes and wires");
    auto* strict = command.add_flag("--strict", scan.strict,
                                    "The scan of the CAD commands: fails at the first entity of a "
                                    "page that is no block reference");
    command
        .add_flag("--mixed", scan.mixed,
                  "The scan of pages with lines and texts beside blocks (the default)")
        ->excludes(strict);
    command.add_flag("--layer-0", scan.layer0, "Layer \"0\" counts as a page too")
        ->excludes(strict);
}

void AddLanguageOptions(CLI::App& command, LanguageOptions& languages) {
    command
        .add_option("--from", languages.from,
                    "Language of the drawing, by key or by name (default: the project's, else "
                    "the first in use)")
        ->check(kNotEmpty)
        ->type_name("KEY");
    command.add_option("--to", languages.to, "Language to translate into, by key or by name")
        ->check(kNotEmpty)
        ->type_name("KEY");
}

void AddSaveOptions(CLI::App& command, SaveOptions& save) {
    command
        .add_option("-o,--output", save.output,
                    "The new drawing; - writes standard output, and the report goes to stderr; "
                    "may name the input")
        ->check(kNotEmpty)
        ->type_name("FILE");
    command.add_flag("--force", save.force,
                     "Replace the input even if another program has changed it meanwhile");
}

void AddExchangeFile(CLI::App& command, std::string& file, bool& utf8, const std::string& stream) {
    command.add_option("FILE.csv", file, "The rows, in the code page of the settings; " + stream)
        ->required()
        ->check(kNotEmpty)
        ->type_name("FILE");
    command.add_flag("--utf8", utf8, "The file is UTF-8 in place of the code page");
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
