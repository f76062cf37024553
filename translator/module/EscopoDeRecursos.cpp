// The scope of resources of the commands.
#include "translator/module/EscopoDeRecursos.h"

#include "platform/kernel/MxSystemServices.h"
#include "translator/module/LibraryEntry.h"

void AbrirRecursos() {
    GetMxSystemServices()->GetDocumentManager()->PushResourceHandle(ExtensionModule().instance);
}

void FecharRecursos() { GetMxSystemServices()->GetDocumentManager()->PopResourceHandle(); }
