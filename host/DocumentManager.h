// The open documents: opening, activating, closing, and who is told of it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Document.h"
#include "platform/kernel/MxDocumentManager.h"

namespace host {

class DocumentManager : public CMxDocumentManager {
  public:
    using Prepare = std::function<void(Document&)>;  // gives a new document what it starts with

    explicit DocumentManager(TextSink print = {}, Prepare prepare = {});
    ~DocumentManager() override;  // closes what is open, the last one first

    // Opens a drawing and makes it the active document. Raises OdError when it cannot be read; the
    // reactors have then been told that the creation was cancelled.
    Document& Open(const std::string& nativePath);
    // The same for a drawing that has been read already; fileName may be empty.
    Document& Open(OdDbDatabasePtr drawing, const std::string& fileName);
    void Activate(Document& document);
    // Nothing is saved. The document that was opened last of the others becomes active.
    void Close(Document& document);
    void CloseAll();

    Document* Active() { return active; }
    bool IsOpen(const CMxDocument* document) const;
    const std::vector<std::unique_ptr<Document>>& Documents() const { return documents; }

    int GetDocumentCount() const override { return static_cast<int>(documents.size()); }
    CMxDocument* GetDocument(int16_t index) override;
    CMxDocument* GetActiveDocument() override { return active; }
    void AddReactor(CMxDocumentManagerReactor* reactor) override;
    void RemoveReactor(CMxDocumentManagerReactor* reactor) override;
    // There are no resource modules here; the scopes are kept so that they can be checked.
    void PushResourceHandle(void* moduleHandle) override { resources.push_back(moduleHandle); }
    void PopResourceHandle() override;
    const std::vector<void*>& ResourceScopes() const { return resources; }

  private:
    using Reaction = void (CMxDocumentManagerReactor::*)(CMxDocument*);
    using ReadDrawing = std::function<OdDbDatabasePtr()>;

    Document& Create(const std::string& fileName, const ReadDrawing& read);
    void Tell(Reaction reaction, CMxDocument* document);

    TextSink print;
    Prepare prepare;
    std::vector<std::unique_ptr<Document>> documents;  // in order of opening
    Document* active = nullptr;
    std::vector<CMxDocumentManagerReactor*> reactors;
    std::vector<void*> resources;
};

}  // namespace host
