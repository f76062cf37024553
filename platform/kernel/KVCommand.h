// A command of the product, and the factories that make one of a function.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/text/CMxString.h"
#include "platform/text/OdString.h"

class CMxCommandContext;

class CKVCommand {
  public:
    // When the host runs a command. Other values than these are kept as they are given.
    enum runTime : int32_t { onRequest = 2 };  // whenever the user or a script asks for it

    virtual OdString GetName() const = 0;
    virtual bool IsUndoable() const = 0;  // the host opens an undo record around the run
    virtual runTime GetRunTime() const = 0;
    virtual void Run(CMxCommandContext* context) = 0;  // what it throws is the runner's to handle

    virtual ~CKVCommand() = default;
};

std::shared_ptr<CKVCommand> makeUndoableFunctionCommand(
    const CMxString& name, std::function<void(CMxCommandContext*)> function,
    CKVCommand::runTime when);
std::shared_ptr<CKVCommand> makeNotUndoableFunctionCommand(
    const CMxString& name, std::function<void(CMxCommandContext*)> function,
    CKVCommand::runTime when);

// The host's table of commands.
class CKVCommandManager {
  public:
    virtual void AddCommand(std::shared_ptr<CKVCommand> command) = 0;  // replaces one of that name
    virtual void RemoveCommand(OdString name) = 0;                     // unknown: nothing

    virtual ~CKVCommandManager() = default;
};
