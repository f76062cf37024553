// Start and stop of the module.
#include "translator/module/CCEntryPoint.h"

#include "platform/kernel/MxDocument.h"
#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/Guarded.h"

namespace {

CMxDocumentManager* GestorDocumentos() {
    CMxSystemServices* services = GetMxSystemServices();
    return services ? services->GetDocumentManager() : nullptr;
}

}  // namespace

CCEntryPoint::CCEntryPoint() { reactor.owner = this; }

// The number of documents is asked for anew at each step, since a hook may open or close one.
template <class Visit>
void CCEntryPoint::paraCadaDocumento(CMxDocumentManager& documents, Visit visit) {
    for (int16_t i = 0; i < static_cast<int16_t>(documents.GetDocumentCount()); ++i)
        visit(documents.GetDocument(i));
}

void CCEntryPoint::initApp() {
    Guarded(u"CCEntryPoint::initApp", [this] {
        registos.clear();
        registarComandos();
        odedRegCmds()->addReactor(&reactor);
        CMxDocumentManager* documents = GestorDocumentos();
        if (!documents) return;
        documents->AddReactor(&reactor);
        paraCadaDocumento(*documents, [this](CMxDocument* document) {
            registar(document);
            documentoAberto(document);
        });
    });
}

void CCEntryPoint::uninitApp() {
    Guarded(u"CCEntryPoint::uninitApp", [this] {
        odedRegCmds()->removeReactor(&reactor);
        if (CMxDocumentManager* documents = GestorDocumentos()) {
            paraCadaDocumento(*documents, [this](CMxDocument* document) {
                retirar(document);
                documentoFechado(document);
            });
            documents->RemoveReactor(&reactor);
        }
        removerComandos();
    });
}

void CCEntryPoint::registar(CMxDocument* document) {
    for (const auto& [name, value] : registos)
        document->GetRegistry()->registarDocumento(OdString(name.c_str()), value);
}

void CCEntryPoint::retirar(CMxDocument* document) {
    for (const auto& [name, value] : registos)
        document->GetRegistry()->retirarDocumento(OdString(name.c_str()));
}
