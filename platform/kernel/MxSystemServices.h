// The host's system services and the pointer under which the running program installs them.
#pragma once

#include "platform/kernel/MxApplication.h"
#include "platform/kernel/MxDocument.h"
#include "platform/kernel/MxDocumentManager.h"
#include "platform/kernel/MxMessageBox.h"

// Everything it gives belongs to the host and lives as long as the services are installed.
class CMxSystemServices {
  public:
    virtual CMxDocumentManager* GetDocumentManager() = 0;
    virtual CMxApplicationInfo* GetApplicationInfo() = 0;
    virtual CMxMainWindowService* GetMainWindowService() = 0;
    virtual CMxHostAppServices* GetHostAppServices() = 0;
    virtual CMxMessageBoxService* GetMessageBoxService() = 0;

    virtual ~CMxSystemServices() = default;
};

CMxSystemServices* GetMxSystemServices();  // null before a program has installed its services
void InstallMxSystemServices(CMxSystemServices* services);  // null takes them away; not owned

CMxDocument* ACTIVE_DOCUMENT();  // the active document, or null
