// kelvara switch: puts a project into another language, from the records in its drawing.
#include <QJsonArray>
#include <optional>

#include "apps/cli/Failure.h"
#include "apps/cli/LanguageSwitch.h"
#include "apps/cli/Output.h"
#include "apps/cli/ProjectLanguage.h"
#include "apps/cli/Saving.h"
#include "apps/cli/Scan.h"
#include "apps/cli/TranslationRecords.h"
#include "translator/engine/ITradCad.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    std::string to;
    bool strict = false;
    SaveOptions save;
};

void RequireRecords(Session& session) {
    if (session.Drawing().hasDictionaries()) return;
    throw Error(session.Document().FileName() +
                ": a drawing of R12 or older holds no translation records; save it as R2000 or "
                "later, and translate it with --record");
}

SwitchLanguage LanguageOf(const LanguageNames& names, int key) {
    return {TQString(key, 0), names.NameOf(key)};
}

// The language that the project is in, which must be another one than the target.
int SourceLanguage(Session& session, const LanguageNames& names, int target) {
    const int source = session.ProjectLanguage();
    const std::string file = session.Document().FileName();
    if (source < 0) {
        throw Error(file +
                    ": the project has no language yet; say which one its texts are in "
                    "with 'kelvara project --language', or translate it with --record");
    }
    if (source == target) {
        throw Error(file + ": the project is in language " + names.NameOf(target) +
                    " already; nothing was changed");
    }
    return source;
}

traducaoTQ::ListaTraduziveis ScanOf(Session& session, bool strict) {
    if (!strict) return Scan(session, {}).Run();
    return traducaoTQ::ITradCad().BuscarTraduziveis(true, true, true, true, false, true, false);
}

QJsonObject ToJson(const LanguageSwitch& change, const std::optional<Certificate>& certificate) {
    QJsonArray notReversible;
    for (const NotReversible& text : change.Remarks()) {
        notReversible.append(QJsonObject{{"kind", QString::fromStdString(text.kind)},
                                         {"key", QString::fromStdString(text.key)},
                                         {"text", QString::fromStdString(text.text)},
                                         {"reason", QString::fromStdString(text.reason)}});
    }
    QJsonObject object{{"objects", static_cast<qint64>(change.Objects())},
                       {"switched", static_cast<qint64>(change.Switched())},
                       {"notReversible", notReversible},
                       {"saved", certificate.has_value()}};
    if (certificate) {
        object["stringsChanged"] = static_cast<qint64>(certificate->strings);
        object["otherValuesChanged"] = static_cast<qint64>(certificate->others);
        object["recordsWritten"] = static_cast<qint64>(certificate->records);
    }
    return object;
}

void PrintText(Output& output, const LanguageSwitch& change,
               const std::optional<Certificate>& certificate) {
    output.Line("objects         " + std::to_string(change.Objects()));
    output.Line("switched        " + std::to_string(change.Switched()));
    output.Line("not reversible  " + std::to_string(change.Remarks().size()));
    for (const NotReversible& text : change.Remarks()) {
        output.Line("  " + text.kind + " " + Escaped(text.key) + " \"" + Escaped(text.text) +
                    "\": " + text.reason);
    }
    if (certificate) {
        output.Line("certificate     " + certificate->Line());
    } else {
        output.Line("nothing saved   " + std::to_string(change.Switched()) +
                    " texts would be switched with -o");
    }
}

void Save(const Arguments& arguments, Session& session, const LanguageSwitch& change, int target,
          Progress& progress, const Tell& tell) {
    session.SetProjectLanguage(target);
    Expectation expectation;
    expectation.texts = change.Expected();
    expectation.recordKeys = RecordKeys();
    expectation.wires = true;
    SaveCertified(session, arguments.save, std::move(expectation), progress, tell);
}

void Print(Output output, const LanguageSwitch& change,
           const std::optional<Certificate>& certificate) {
    if (output.Json()) {
        output.Object(ToJson(change, certificate));
    } else {
        PrintText(output, change, certificate);
    }
    output.Finish();
}

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    session.OpenDrawing(arguments.drawing);
    RequireEditable(session);
    RequireRecords(session);
    const LanguageNames names(general, session);
    const int target = names.KeyOf(arguments.to);
    const int source = SourceLanguage(session, names, target);

    progress.Phase("scanning");
    const traducaoTQ::ListaTraduziveis list = ScanOf(session, arguments.strict);
    progress.Phase("switching there and back");
    LanguageSwitch change(session.Drawing(), LanguageOf(names, source), LanguageOf(names, target));
    change.Run(*list);
    const auto tell = [&](const std::optional<Certificate>& certificate) {
        progress.End();
        Print(Output(general, arguments.save.output == kStandardStream), change, certificate);
    };
    if (arguments.save.output.empty()) {
        tell(std::nullopt);
    } else {
        Save(arguments, session, change, target, progress, tell);
    }
    EndProcess();
}

}  // namespace

void RegisterSwitch(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        line.Add(line.app, "switch",
                 "Changes the language of the project from the records in its drawing, and tells "
                 "which texts the way back would not restore",
                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    command->add_option("--to", arguments->to, "The new language, by key or by name")
        ->required()
        ->check(kNotEmpty);
    command->add_flag("--strict", arguments->strict,
                      "The scan of the CAD commands: fails at the first entity of a page that is "
                      "no block reference");
    AddSaveOptions(*command, arguments->save);
}

}  // namespace cli
