// kelvara project: shows or sets the language that a project is in.
#include "host/Project.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/ProjectLanguage.h"
#include "apps/cli/Saving.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    std::string language;
    SaveOptions save;
};

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
    const LanguageNames names(general, session);
    int key = session.ProjectLanguage();
    Output output(general, arguments.save.output == kStandardStream);
    if (!arguments.language.empty()) {
        RequireEditable(session);
        key = names.KeyOf(arguments.language);
        if (arguments.save.output.empty()) {
            output.Note("nothing was written: the language would be set with -o");
        } else {
            Save(general, session, arguments.save, key);
        }
    }
    if (output.Json()) {
        output.Object({{"language", key}, {"name", QString::fromStdString(names.NameOf(key))}});
    } else {
        output.Line(names.NameOf(key));
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
