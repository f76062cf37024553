// The command stack and the reactions that do nothing.
#include "platform/drawing/EdCommandStack.h"

#include <algorithm>

#include "platform/drawing/StaticRxObject.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandContext, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandStackReactor, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandStack, OdRxObject)

void OdEdCommandStackReactor::commandAdded(const OdString&) {}
void OdEdCommandStackReactor::commandWillBeRemoved(const OdString&) {}
void OdEdCommandStackReactor::commandWillStart(const OdString&, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandEnded(const OdString&, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandCancelled(const OdString&, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandFailed(const OdString&, OdEdCommandContext*) {}
void OdEdCommandStackReactor::unknownCommand(const OdString&, OdEdCommandContext*) {}

void OdEdCommandStack::addReactor(OdEdCommandStackReactor* reactor) {
    if (reactor && std::ranges::find(reactors, reactor) == reactors.end()) {
        reactors.push_back(reactor);
    }
}

void OdEdCommandStack::removeReactor(OdEdCommandStackReactor* reactor) {
    std::erase(reactors, reactor);
}

template <class Tell>
void OdEdCommandStack::tellAll(const Tell& tell) {
    const auto told = reactors;
    for (OdEdCommandStackReactor* reactor : told) {
        if (std::ranges::find(reactors, reactor) != reactors.end()) tell(*reactor);
    }
}

void OdEdCommandStack::fireCommandAdded(const OdString& command) {
    tellAll([&](auto& reactor) { reactor.commandAdded(command); });
}
void OdEdCommandStack::fireCommandWillBeRemoved(const OdString& command) {
    tellAll([&](auto& reactor) { reactor.commandWillBeRemoved(command); });
}
void OdEdCommandStack::fireCommandWillStart(const OdString& command, OdEdCommandContext* context) {
    tellAll([&](auto& reactor) { reactor.commandWillStart(command, context); });
}
void OdEdCommandStack::fireCommandEnded(const OdString& command, OdEdCommandContext* context) {
    tellAll([&](auto& reactor) { reactor.commandEnded(command, context); });
}
void OdEdCommandStack::fireCommandCancelled(const OdString& command, OdEdCommandContext* context) {
    tellAll([&](auto& reactor) { reactor.commandCancelled(command, context); });
}
void OdEdCommandStack::fireCommandFailed(const OdString& command, OdEdCommandContext* context) {
    tellAll([&](auto& reactor) { reactor.commandFailed(command, context); });
}
void OdEdCommandStack::fireUnknownCommand(const OdString& command, OdEdCommandContext* context) {
    tellAll([&](auto& reactor) { reactor.unknownCommand(command, context); });
}

OdEdCommandStackPtr odedRegCmds() {
    static OdStaticRxObject<OdEdCommandStack> stack;
    return OdEdCommandStackPtr(&stack);
}
