// The life of one command.
#include "host/CommandRunner.h"

#include <exception>

#include "host/FailureLine.h"
#include "platform/drawing/StaticRxObject.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxCommandContext.h"
#include "platform/kernel/MxSystemServices.h"

namespace host {

namespace {

using Context = OdStaticRxObject<CMxCommandContext>;

// Runs work and gives what it raises, null after success.
std::exception_ptr FailureOf(const std::function<void()>& work) {
    try {
        work();
        return nullptr;
    } catch (...) {
        return std::current_exception();
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
                             std::function<void()> atEnd, Explain explain)
    : commands(commands),
      documents(documents),
      atEnd(std::move(atEnd)),
      explain(std::move(explain)) {}

CommandOutcome CommandRunner::Run(const OdString& name) {
    Document* document = documents.Active();
    // Held here: a command may remove itself from the table.
    if (const std::shared_ptr<CKVCommand> command = commands.Find(name)) {
        return RunGuarded(*command, document);
    }
    CommandOutcome outcome;
    outcome.failure = u"unknown command " + name.text();
    Context context(document);
    const auto raised = FailureOf([&] { odedRegCmds()->fireUnknownCommand(name, &context); });
    if (raised) electricalLog(name.text() + u" : " + FailureLine(raised), document);
    ShowToUser(outcome.failure);
    return outcome;
}

std::u16string CommandRunner::Attempt(CommandOutcome& outcome,
                                      const std::function<void()>& work) const {
    const std::exception_ptr failure = FailureOf(work);
    outcome.done = !failure;
    if (!failure) return {};
    outcome.failure = FailureLine(failure);
    return explain ? explain(failure) : std::u16string();
}

CommandOutcome CommandRunner::RunGuarded(CKVCommand& command, Document* document) {
    const OdString name = command.GetName();
    Context context(document);
    CommandOutcome outcome;
    const std::u16string explanation = Attempt(outcome, [&] {
        odedRegCmds()->fireCommandWillStart(name, &context);
        OdDbDatabase* drawing = document ? document->GetDwgDatabase() : nullptr;
        RunRecorded(command, context, drawing);
    });
    if (atEnd) atEnd();

    // The command may have closed its document.
    if (!documents.IsOpen(document)) document = nullptr;
    Context after(document);
    if (!outcome.done) Report(name, outcome.failure, explanation, document);
    const auto raised = FailureOf([&] {
        if (outcome.done)
            odedRegCmds()->fireCommandEnded(name, &after);
        else
            odedRegCmds()->fireCommandFailed(name, &after);
    });
    if (raised) Report(name, FailureLine(raised), {}, document);
    return outcome;
}

void CommandRunner::RunRecorded(CKVCommand& command, CMxCommandContext& context,
                                OdDbDatabasePtr drawing) {
    if (drawing.isNull() || !command.IsUndoable()) {
        command.Run(&context);
        return;
    }
    drawing->startUndoRecord(command.GetName());
    const auto failure = FailureOf([&] { command.Run(&context); });
    // What the command changed last is written only here, which may fail as the command may.
    const auto afterwards = FailureOf([&] { drawing->endUndoRecord(); });
    if (failure && afterwards) {
        electricalLog(command.GetName().text() + u" : " + FailureLine(afterwards),
                      ACTIVE_DOCUMENT());
    }
    if (failure || afterwards) std::rethrow_exception(failure ? failure : afterwards);
}

void CommandRunner::Report(const OdString& name, const std::u16string& failure,
                           const std::u16string& explanation, const CMxDocument* document) {
    const std::u16string line = name.text() + u" : " + failure;
    electricalLog(line, document);
    ShowToUser(explanation.empty() ? line : explanation);
}

}  // namespace host
