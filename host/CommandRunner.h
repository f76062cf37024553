// Runs commands: undo record, reactors, and the last handler of what a command raises.
#pragma once

#include <exception>
#include <functional>

#include "host/CommandManager.h"
#include "host/DocumentManager.h"

class CMxCommandContext;

namespace host {

struct CommandOutcome {
    bool done = false;
    std::u16string failure;  // one line; empty when done
};

// What the user is told of a failure in place of its own line; empty for that line.
using Explain = std::function<std::u16string(std::exception_ptr failure)>;

// An undoable command runs inside an undo record of the active document. After success the reactors
// of the command stack get commandEnded, after an exception commandFailed, both with a
// CMxCommandContext that holds the document. A failure is logged and shown to the user and does not
// leave Run; nothing is rolled back, since the user can undo.
class CommandRunner {
  public:
    // atEnd runs after every command, whatever its outcome, before the reactors are told.
    CommandRunner(CommandManager& commands, DocumentManager& documents, std::function<void()> atEnd,
                  Explain explain = {});

    CommandOutcome Run(const OdString& name);

  private:
    // Runs work; after a failure the outcome holds its line, the result what the user is told.
    std::u16string Attempt(CommandOutcome& outcome, const std::function<void()>& work) const;
    CommandOutcome RunGuarded(CKVCommand& command, Document* document);
    void RunRecorded(CKVCommand& command, CMxCommandContext& context, OdDbDatabasePtr drawing);
    void Report(const OdString& name, const std::u16string& failure,
                const std::u16string& explanation, const CMxDocument* document);

    CommandManager& commands;
    DocumentManager& documents;
    std::function<void()> atEnd;
    Explain explain;
};

}  // namespace host
