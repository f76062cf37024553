// The services of the product and the pointer under which the running program installs them.
#pragma once

#include "platform/kernel/KVCommand.h"
#include "platform/kernel/KVDatabase.h"
#include "platform/kernel/KVProject.h"
#include "platform/text/CMxString.h"

class CMxDocument;

// Everything it gives belongs to the host and lives as long as the services are installed.
class CKVServices {
  public:
    virtual CKVCommandManager* GetCommandManager() = 0;
    virtual CKVProjectManager* GetProjectManager() = 0;
    virtual CKVDataManager* GetDataManager() = 0;
    virtual void WriteLog(const CMxString& line, const CMxDocument* document) = 0;

    virtual ~CKVServices() = default;
};

CKVServices* GetElectricalServices();  // null before a program has installed its services
void InstallElectricalServices(CKVServices* services);  // null takes them away; not owned

// Writes one line to the host's log for that document, which may be null. Nothing without services.
void electricalLog(const CMxString& line, const CMxDocument* document);
