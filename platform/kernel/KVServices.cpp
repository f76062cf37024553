// One set of services for the program and every module that it loads.
#include "platform/kernel/KVServices.h"

namespace {

CKVServices* installed = nullptr;

}  // namespace

CKVServices* GetElectricalServices() { return installed; }

void InstallElectricalServices(CKVServices* services) { installed = services; }

void electricalLog(const CMxString& line, const CMxDocument* document) {
    if (installed) installed->WriteLog(line, document);
}
