// The host's table of commands.
#pragma once

#include <memory>
#include <vector>

#include "platform/kernel/KVCommand.h"

namespace host {

// Names are compared without regard to case. Reactors of the command stack are told of changes.
class CommandManager : public CKVCommandManager {
  public:
    void AddCommand(std::shared_ptr<CKVCommand> command) override;
    void RemoveCommand(OdString name) override;

    std::shared_ptr<CKVCommand> Find(const OdString& name) const;  // null for none
    const std::vector<std::shared_ptr<CKVCommand>>& Commands() const { return commands; }

  private:
    std::vector<std::shared_ptr<CKVCommand>> commands;  // in order of registration
};

}  // namespace host
