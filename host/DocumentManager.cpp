// The order of events in the life of a document.
#include "host/DocumentManager.h"

#include <algorithm>

#include "host/FailureLine.h"
#include "platform/kernel/KVServices.h"

namespace host {

DocumentManager::DocumentManager(TextSink print, Prepare prepare)
    : print(std::move(print)), prepare(std::move(prepare)) {}

DocumentManager::~DocumentManager() { CloseAll(); }

Document& DocumentManager::Open(const std::string& nativePath) {
    return Create(nativePath, [&] { return OdDbDatabase::readFile(nativePath); });
}

Document& DocumentManager::Open(OdDbDatabasePtr drawing, const std::string& fileName) {
    return Create(fileName, [&] { return drawing; });
}

Document& DocumentManager::Create(const std::string& fileName, const ReadDrawing& read) {
    auto created = std::make_unique<Document>(fileName, print);
    Document& document = *created;
    Tell(&CMxDocumentManagerReactor::DocumentCreateStarted, &document);
    try {
        document.SetDatabase(read());
        if (prepare) prepare(document);
    } catch (...) {
        Tell(&CMxDocumentManagerReactor::DocumentCreateCanceled, &document);
        throw;
    }
    documents.push_back(std::move(created));
    Tell(&CMxDocumentManagerReactor::DocumentCreated, &document);
    Tell(&CMxDocumentManagerReactor::DocumentAdded, &document);
    Activate(document);
    return document;
}

void DocumentManager::Activate(Document& document) {
    if (active == &document) return;
    if (active) Tell(&CMxDocumentManagerReactor::DocumentToBeDeactivated, active);
    Tell(&CMxDocumentManagerReactor::DocumentToBeActivated, &document);
    active = &document;
    Tell(&CMxDocumentManagerReactor::DocumentBecameCurrent, active);
    Tell(&CMxDocumentManagerReactor::DocumentActivated, active);
}

void DocumentManager::Close(Document& document) {
    const bool wasActive = active == &document;
    if (wasActive) Tell(&CMxDocumentManagerReactor::DocumentToBeDeactivated, &document);
    Tell(&CMxDocumentManagerReactor::DocumentToBeDestroyed, &document);
    if (wasActive) active = nullptr;
    const auto place = std::find_if(documents.begin(), documents.end(),
                                    [&](const auto& open) { return open.get() == &document; });
    std::unique_ptr<Document> closing = std::move(*place);
    documents.erase(place);
    Tell(&CMxDocumentManagerReactor::DocumentRemoved, closing.get());
    CMxDocument* const gone = closing.get();
    closing.reset();
    // The address alone, by which a reactor knows what it kept.  NOLINTNEXTLINE(clang-analyzer-*)
    Tell(&CMxDocumentManagerReactor::DocumentDestroyed, gone);
    if (wasActive && !documents.empty()) Activate(*documents.back());
}

void DocumentManager::CloseAll() {
    while (!documents.empty()) Close(*documents.back());
}

bool DocumentManager::IsOpen(const CMxDocument* document) const {
    return std::any_of(documents.begin(), documents.end(),
                       [&](const auto& open) { return open.get() == document; });
}

CMxDocument* DocumentManager::GetDocument(int16_t index) {
    return index >= 0 && index < GetDocumentCount() ? documents[index].get() : nullptr;
}

void DocumentManager::AddReactor(CMxDocumentManagerReactor* reactor) {
    if (std::find(reactors.begin(), reactors.end(), reactor) == reactors.end()) {
        reactors.push_back(reactor);
    }
}

void DocumentManager::RemoveReactor(CMxDocumentManagerReactor* reactor) {
    std::erase(reactors, reactor);
}

void DocumentManager::PopResourceHandle() {
    if (!resources.empty()) resources.pop_back();
}

// A reactor may come or go while the others are told. What one raises does not leave the document
// half made, nor the others without the event.
void DocumentManager::Tell(Reaction reaction, CMxDocument* document) {
    for (CMxDocumentManagerReactor* reactor : std::vector(reactors)) {
        const bool stays = std::find(reactors.begin(), reactors.end(), reactor) != reactors.end();
        if (!stays) continue;
        try {
            (reactor->*reaction)(document);
        } catch (...) {  // the document may be gone, so that the line names none
            electricalLog(u"DocumentManager : " + FailureLine(std::current_exception()), nullptr);
        }
    }
}

}  // namespace host
