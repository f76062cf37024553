// OdEdCommandStack: whom the host tells when commands come, start and end.
#pragma once

#include <vector>

#include "platform/drawing/RxObject.h"

// The surroundings in which a command runs. Hosts derive theirs from it.
class OdEdCommandContext : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdEdCommandContext);

  protected:
    OdEdCommandContext() = default;
};

// All reactions do nothing unless overridden. Commands are told by their global name; the context
// may be null.
class OdEdCommandStackReactor : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdEdCommandStackReactor);

    virtual void commandAdded(const OdString& command);
    virtual void commandWillBeRemoved(const OdString& command);
    virtual void commandWillStart(const OdString& command, OdEdCommandContext* context);
    virtual void commandEnded(const OdString& command, OdEdCommandContext* context);
    virtual void commandCancelled(const OdString& command, OdEdCommandContext* context);
    virtual void commandFailed(const OdString& command, OdEdCommandContext* context);
    virtual void unknownCommand(const OdString& command, OdEdCommandContext* context);

  protected:
    OdEdCommandStackReactor() = default;
};

// Holds the reactors without owning them: a reactor is removed before it ends. A reactor stands in
// the list once, however often it is added. The fire functions tell all reactors in the order of
// their coming; one that is removed meanwhile is no longer told, one that is added meanwhile is not
// told yet, and what a reactor raises reaches the caller at once.
class OdEdCommandStack : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdEdCommandStack);
    OdEdCommandStack() = default;

    void addReactor(OdEdCommandStackReactor* reactor);
    void removeReactor(OdEdCommandStackReactor* reactor);  // unknown: nothing

    void fireCommandAdded(const OdString& command);
    void fireCommandWillBeRemoved(const OdString& command);
    void fireCommandWillStart(const OdString& command, OdEdCommandContext* context);
    void fireCommandEnded(const OdString& command, OdEdCommandContext* context);
    void fireCommandCancelled(const OdString& command, OdEdCommandContext* context);
    void fireCommandFailed(const OdString& command, OdEdCommandContext* context);
    void fireUnknownCommand(const OdString& command, OdEdCommandContext* context);

  private:
    template <class Tell>
    void tellAll(const Tell& tell);

    std::vector<OdEdCommandStackReactor*> reactors;
};
using OdEdCommandStackPtr = OdSmartPtr<OdEdCommandStack>;

// The command stack of the process, the same one for the host and every module.
OdEdCommandStackPtr odedRegCmds();
