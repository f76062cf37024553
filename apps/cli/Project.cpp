// kelvara project: shows or sets the language that a project is in.
#include "host/Project.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Paths.h"
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
void SaveOld(Session& session, const SaveOptions& save, int key,
             const std::function<void()>& tell) {
    if (save.output == kStandardStream) {
        throw Error(
            "a drawing of R12 or older cannot hold the project's language, which is kept "
            "under the name of the file; give -o the name of a file");
    }
    SaveDrawing(session, save, [&](const std::string&) {
        tell();
        session.RememberLanguageOf(CanonicalPath(save.output), key);
    });
}

void Save(const GeneralOptions& general, Session& session, const SaveOptions& save, int key,
          Progress& progress, const std::function<void()>& tell) {
    if (!session.Drawing().hasDictionaries()) return SaveOld(session, save, key, tell);
    session.SetProjectLanguage(key);
    Expectation expectation;
    expectation.recordKeys = {host::kProjectDictionary};
    SaveCertified(session, save, std::move(expectation), progress,
                  [&](const Certificate& certificate) {
                      progress.End();
                      Output(general).Detail(certificate.Line());
                      tell();
                  });
}

void Print(Output& output, int key, const std::string& name) {
    if (output.Json()) {
        output.Object({{"language", key}, {"name", QString::fromStdString(name)}});
    } else {
        output.Line(name);
    }
    output.Finish();
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    session.OpenDrawing(arguments.drawing);
    const LanguageNames names(general, session);
    const bool changes = !arguments.language.empty();
    if (changes) RequireEditable(session);
    const int key = changes ? names.KeyOf(arguments.language) : session.ProjectLanguage();
    Output output(general, arguments.save.output == kStandardStream);
    const auto tell = [&] {
        progress.End();
        Print(output, key, names.NameOf(key));
    };
    if (!arguments.save.output.empty()) {
        return Save(general, session, arguments.save, key, progress, tell);
    }
    tell();
    if (changes) output.Note("nothing was written: the language would be set with -o");
}

}  // namespace

void RegisterProject(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "project", "Shows or sets the language of the project",
                                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    auto* language =
        command
            ->add_option("--language", arguments->language, "The new language, by key or by name")
            ->check(kNotEmpty);
    AddSaveOptions(*command, arguments->save);
    command->get_option("--output")->needs(language);
}

}  // namespace cli
