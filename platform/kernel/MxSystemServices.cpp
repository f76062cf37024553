// One set of services for the program and every module that it loads.
#include "platform/kernel/MxSystemServices.h"

namespace {

CMxSystemServices* installed = nullptr;

}  // namespace

CMxSystemServices* GetMxSystemServices() { return installed; }

void InstallMxSystemServices(CMxSystemServices* services) { installed = services; }

CMxDocument* ACTIVE_DOCUMENT() {
    CMxDocumentManager* documents = installed ? installed->GetDocumentManager() : nullptr;
    return documents ? documents->GetActiveDocument() : nullptr;
}
