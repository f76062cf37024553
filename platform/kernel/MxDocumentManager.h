// The open documents of the host, and the reactor that is told of them.
#pragma once

#include <cstdint>

#include "platform/drawing/RxObject.h"

class CMxDocument;

// Is told what happens to documents; every reaction does nothing until it is overridden. The
// document is alive during the call, except in DocumentDestroyed, where the pointer only identifies
// it. The manager does not own its reactors.
class CMxDocumentManagerReactor : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(CMxDocumentManagerReactor);

    virtual void DocumentCreateStarted(CMxDocument*) {}
    virtual void DocumentCreated(CMxDocument*) {}
    virtual void DocumentToBeDestroyed(CMxDocument*) {}
    virtual void DocumentDestroyed(CMxDocument*) {}
    virtual void DocumentAdded(CMxDocument*) {}
    virtual void DocumentRemoved(CMxDocument*) {}
    virtual void DocumentToBeActivated(CMxDocument*) {}
    virtual void DocumentToBeDeactivated(CMxDocument*) {}
    virtual void DocumentActivated(CMxDocument*) {}
    virtual void DocumentCreateCanceled(CMxDocument*) {}
    virtual void DocumentBecameCurrent(CMxDocument*) {}
    virtual void DocumentActivationModified(bool) {}
    virtual void DocumentPreOpen(CMxDocument*) {}
};

// The open documents in order of opening. For the main thread only.
class CMxDocumentManager {
  public:
    virtual int GetDocumentCount() const = 0;             // 16 bits of the result count
    virtual CMxDocument* GetDocument(int16_t index) = 0;  // null for an index out of range
    virtual CMxDocument* GetActiveDocument() = 0;         // null when none is open

    virtual void AddReactor(CMxDocumentManagerReactor* reactor) = 0;     // once; not owned
    virtual void RemoveReactor(CMxDocumentManagerReactor* reactor) = 0;  // unknown: nothing

    // Dialog templates and strings come from this module until the matching pop.
    virtual void PushResourceHandle(void* moduleHandle) = 0;
    virtual void PopResourceHandle() = 0;

    virtual ~CMxDocumentManager() = default;
};
