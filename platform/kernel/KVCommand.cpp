// Commands that are functions.
#include "platform/kernel/KVCommand.h"

namespace {

class FunctionCommand : public CKVCommand {
  public:
    FunctionCommand(const CMxString& name, std::function<void(CMxCommandContext*)> function,
                    runTime when, bool undoable)
        : name(name.wide_str()), function(std::move(function)), when(when), undoable(undoable) {}

    OdString GetName() const override { return name; }
    bool IsUndoable() const override { return undoable; }
    runTime GetRunTime() const override { return when; }
    void Run(CMxCommandContext* context) override { function(context); }

  private:
    OdString name;
    std::function<void(CMxCommandContext*)> function;
    runTime when;
    bool undoable;
};

}  // namespace

std::shared_ptr<CKVCommand> makeUndoableFunctionCommand(
    const CMxString& name, std::function<void(CMxCommandContext*)> function,
    CKVCommand::runTime when) {
    return std::make_shared<FunctionCommand>(name, std::move(function), when, true);
}

std::shared_ptr<CKVCommand> makeNotUndoableFunctionCommand(
    const CMxString& name, std::function<void(CMxCommandContext*)> function,
    CKVCommand::runTime when) {
    return std::make_shared<FunctionCommand>(name, std::move(function), when, false);
}
