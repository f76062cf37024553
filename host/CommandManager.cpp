// Registering and finding commands.
#include "host/CommandManager.h"

#include <algorithm>

#include "platform/drawing/EdCommandStack.h"

namespace host {

void CommandManager::AddCommand(std::shared_ptr<CKVCommand> command) {
    const OdString name = command->GetName();
    RemoveCommand(name);
    commands.push_back(std::move(command));
    odedRegCmds()->fireCommandAdded(name);
}

void CommandManager::RemoveCommand(OdString name) {
    const std::shared_ptr<CKVCommand> command = Find(name);
    if (!command) return;
    odedRegCmds()->fireCommandWillBeRemoved(command->GetName());
    std::erase(commands, command);
}

std::shared_ptr<CKVCommand> CommandManager::Find(const OdString& name) const {
    const auto found = std::find_if(commands.begin(), commands.end(), [&](const auto& command) {
        return command->GetName().iCompare(name) == 0;
    });
    return found == commands.end() ? nullptr : *found;
}

}  // namespace host
