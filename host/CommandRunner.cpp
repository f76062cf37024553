// The life of one command.
#include "host/CommandRunner.h"

#include <exception>

#include "platform/drawing/StaticRxObject.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxCommandContext.h"
#include "platform/kernel/MxSystemServices.h"
#include "platform/text/Conversion.h"

namespace host {

namespace {

using Context = OdStaticRxObject<CMxCommandContext>;

// Runs work and gives the text of what it raises, empty after success.
std::u16string FailureOf(const std::function<void()>& work) {
    try {
        work();
        return {};
    } catch (const OdError& error) {
        return error.description().text();
    } catch (const std::exception& error) {
        return text::WideFromNarrow(error.what());
    } catch (...) {
        return u"unknown exception";
    }
}

void ShowToUser(const std::u16string& line) {
    CMxSystemServices* services = GetMxSystemServices();
    if (!services) return;
    CMxMessageBox::information(services->GetMainWindowService()->GetMainWidget(),
                               services->GetApplicationInfo()->GetApplicationName(), line);
}

}  // namespace

CommandRunner::CommandRunner(CommandManager& commands, DocumentManager& documents,
                             std::function<void()> atEnd)
    : commands(commands), documents(documents), atEnd(std::move(atEnd)) {}

CommandOutcome CommandRunner::Run(const OdString& name) {
    Document* document = documents.Active();
    // Held here: a command may remove itself from the table.
    if (const std::shared_ptr<CKVCommand> command = commands.Find(name)) {
        return RunGuarded(*command, document);
    }
    CommandOutcome outcome;
    outcome.failure = u"unknown command " + name.text();
    Context context(document);
    const std::u16string raised =
        FailureOf([&] { odedRegCmds()->fireUnknownCommand(name, &context); });
    if (!raised.empty()) electricalLog(name.text() + u" : " + raised, document);
    ShowToUser(outcome.failure);
    return outcome;
}

CommandOutcome CommandRunner::RunGuarded(CKVCommand& command, Document* document) {
    const OdString name = command.GetName();
    Context context(document);
    CommandOutcome outcome;
    outcome.failure = FailureOf([&] {
        odedRegCmds()->fireCommandWillStart(name, &context);
        OdDbDatabase* drawing = document ? document->GetDwgDatabase() : nullptr;
        RunRecorded(command, context, drawing);
    });
    outcome.done = outcome.failure.empty();
    if (atEnd) atEnd();

    // The command may have closed its document.
    if (!documents.IsOpen(document)) document = nullptr;
    Context after(document);
    if (!outcome.done) Report(name, outcome.failure, document);
    const std::u16string raised = FailureOf([&] {
        if (outcome.done)
            odedRegCmds()->fireCommandEnded(name, &after);
        else
            odedRegCmds()->fireCommandFailed(name, &after);
    });
    if (!raised.empty()) Report(name, raised, document);
    return outcome;
}

void CommandRunner::RunRecorded(CKVCommand& command, CMxCommandContext& context,
                                OdDbDatabasePtr drawing) {
    if (drawing.isNull() || !command.IsUndoable()) {
        command.Run(&context);
        return;
    }
    drawing->startUndoRecord(command.GetName());
    std::exception_ptr failure;
    try {
        command.Run(&context);
    } catch (...) {
        failure = std::current_exception();
    }
    // What the command changed last is written only here, which may fail as the command may.
    drawing->endUndoRecord();
    if (failure) std::rethrow_exception(failure);
}

void CommandRunner::Report(const OdString& name, const std::u16string& failure,
                           const CMxDocument* document) {
    const std::u16string line = name.text() + u" : " + failure;
    electricalLog(line, document);
    ShowToUser(line);
}

}  // namespace host
