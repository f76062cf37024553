// What the commands are given, and the command line that they register with.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

namespace cli {

// A variable of a script that is empty must not stand for "everything" or "nowhere".
extern const CLI::Validator kNotEmpty;

// Options that stand before or behind every command.
struct GeneralOptions {
    bool quiet = false;
    bool verbose = false;
    bool json = false;
    bool progress = false;  // the bar also where stderr is no terminal
    std::string database;   // URL; empty for the default
};

// Which texts of a drawing a command works on.
struct ScanOptions {
    std::string pages;  // names separated by commas; empty for all
    bool noTexts = false;
    bool noAttributes = false;
    bool strict = false;
    bool mixed = false;  // the default, said aloud
    bool layer0 = false;
};

struct LanguageOptions {
    std::string from;  // key or name; empty for the default
    std::string to;
};

// Where a changed drawing goes.
struct SaveOptions {
    std::string output;  // empty: nowhere; "-": standard output
    bool force = false;  // replace a file that another program has changed meanwhile
};

struct CommandLine {
    CLI::App app;
    GeneralOptions general;
    std::function<void()> action;  // of the command that was chosen

    CommandLine();

    // A command whose work is done once the whole line is understood. The option values that the
    // work reads must live as long as the command line.
    CLI::App* Add(CLI::App& parent, const std::string& name, const std::string& help,
                  std::function<void()> work);
};

void AddDrawing(CLI::App& command, std::string& drawing);
void AddScanOptions(CLI::App& command, ScanOptions& scan);
void AddLanguageOptions(CLI::App& command, LanguageOptions& languages);
void AddSaveOptions(CLI::App& command, SaveOptions& save);
void AddExchangeFile(CLI::App& command, std::string& file, bool& utf8, const std::string& stream);

std::vector<std::string> SplitList(const std::string& list);  // at commas; empty parts do not count

// One function for each command or family of commands.
void RegisterInfo(CommandLine& line);
void RegisterCopy(CommandLine& line);
void RegisterPages(CommandLine& line);
void RegisterProject(CommandLine& line);
void RegisterTexts(CommandLine& line);
void RegisterLines(CommandLine& line);
void RegisterTranslate(CommandLine& line);
void RegisterExport(CommandLine& line);
void RegisterImport(CommandLine& line);
void RegisterSwitch(CommandLine& line);
void RegisterDb(CommandLine& line);
void RegisterRun(CommandLine& line);

}  // namespace cli
