// kelvara project: shows or sets the language that a project is in.
#include <charconv>

#include "apps/cli/Failure.h"
#include "apps/cli/Languages.h"
#include "apps/cli/Output.h"
#include "apps/cli/Saving.h"
#include "host/Error.h"
#include "host/Project.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    std::string language;
    SaveOptions save;
};

// The dictionary tells names of languages. One that was named must open; the default one need not
// be there.
bool OpensDatabase(const GeneralOptions& general, Session& session) {
    try {
        session.OpenDatabase();
        return true;
    } catch (const host::Error& error) {
        if (NamesDatabase(general)) throw;
        Output(general).Detail(error.what());
        return false;
    }
}

int ToNumber(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size() && number > 0;
    return whole ? number : 0;
}

int KeyOf(const std::string& language, bool hasDatabase) {
    if (hasDatabase) return ToNumber(Utf8(Languages().Find(language).key));
    const int key = ToNumber(language);
    if (key > 0) return key;
    throw Error("unknown language \"" + language +
                "\"; there is no dictionary that tells names: give the key, or --database");
}

std::string NameOf(int key, bool hasDatabase) {
    if (key < 0) return "not set";
    const std::string number = std::to_string(key);
    if (!hasDatabase) return number;
    const auto languages = traducaoTQ::IBDIdiomas().GetAllLang();
    const Language* language = FindLanguage(languages, number);
    return language ? number + " " + Utf8(language->descr) : number;
}

// The drawing itself has no place for the language: the output is a copy, and the host's settings
// know the language by the output's name.
void SaveOld(Session& session, const SaveOptions& save, int key) {
    if (save.output == kStandardStream) {
        throw Error(
            "a drawing of R12 or older cannot hold the project's language, which is kept "
            "under the name of the file; give -o the name of a file");
    }
    SaveDrawing(session, save, {});
    session.RememberLanguageOf(save.output, key);
}

void Save(const GeneralOptions& general, Session& session, const SaveOptions& save, int key) {
    if (!session.Drawing().hasDictionaries()) return SaveOld(session, save, key);
    session.SetProjectLanguage(key);
    Progress progress(general);
    Expectation expectation;
    expectation.recordKeys = {host::kProjectDictionary};
    const Certificate certificate = SaveCertified(session, save, std::move(expectation), progress);
    Output(general).Detail(certificate.Line());
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Session session(general);
    session.OpenDrawing(arguments.drawing);
    const bool hasDatabase = OpensDatabase(general, session);
    int key = session.ProjectLanguage();
    Output output(general, arguments.save.output == kStandardStream);
    if (!arguments.language.empty()) {
        RequireEditable(session);
        key = KeyOf(arguments.language, hasDatabase);
        if (arguments.save.output.empty()) {
            output.Note("nothing was written: the language would be set with -o");
        } else {
            Save(general, session, arguments.save, key);
        }
    }
    if (output.Json()) {
        output.Object(
            {{"language", key}, {"name", QString::fromStdString(NameOf(key, hasDatabase))}});
    } else {
        output.Line(NameOf(key, hasDatabase));
    }
    output.Finish();
}

}  // namespace

void RegisterProject(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "project", "Shows or sets the language of the project",
                                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    auto* language = command->add_option("--language", arguments->language,
                                         "The new language, by key or by name");
    AddSaveOptions(*command, arguments->save);
    command->get_option("--output")->needs(language);
}

}  // namespace cli
