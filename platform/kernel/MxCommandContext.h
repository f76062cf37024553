// The context in which the host runs a command.
#pragma once

#include "platform/drawing/EdCommandStack.h"

class CMxDocument;

// Holds the document that was active when the command began; null when there was none. Not owned.
class CMxCommandContext : public OdEdCommandContext {
  public:
    ODRX_DECLARE_MEMBERS(CMxCommandContext);
    explicit CMxCommandContext(CMxDocument* document) : document(document) {}

    virtual CMxDocument* GetDocument() const { return document; }

  private:
    CMxDocument* document;
};
