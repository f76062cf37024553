// What the module does when documents come and go and when commands end.
#include <algorithm>

#include "platform/kernel/MxCommandContext.h"
#include "translator/module/CCEntryPoint.h"

void CCEntryPoint::EntryPointReactor::DocumentAdded(CMxDocument* document) {
    owner->registar(document);
    owner->documentoAberto(document);
    documentos.push_back(document);
}

// The document is not taken out of documentos; only the end of a command does that.
void CCEntryPoint::EntryPointReactor::DocumentRemoved(CMxDocument* document) {
    owner->retirar(document);
    owner->documentoFechado(document);
}

void CCEntryPoint::EntryPointReactor::DocumentActivated(CMxDocument* document) {
    owner->documentoActivado(document);
}

void CCEntryPoint::EntryPointReactor::commandEnded(const OdString&, OdEdCommandContext* context) {
    const auto ofDocument = CMxCommandContext::cast(context);
    if (ofDocument.isNull()) return;
    CMxDocument* document = ofDocument->GetDocument();
    if (!document) return;
    if (std::find(documentos.begin(), documentos.end(), document) == documentos.end()) return;
    owner->primeiroComandoTerminado(document);
    documentos.remove(document);
}
