// A module whose start or stop fails, as the environment variable FAILING_MODULE tells.
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "platform/drawing/EdCommandStack.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/RxModule.h"
#include "platform/drawing/StaticRxObject.h"

namespace {

std::string Wish() {
    const char* wish = std::getenv("FAILING_MODULE");
    return wish ? wish : "";
}

class Reactor : public OdStaticRxObject<OdEdCommandStackReactor> {
  public:
    void commandAdded(const OdString&) override { setenv("FAILING_MODULE_TOLD", "yes", 1); }
};

class Module : public OdStaticRxObject<OdRxModule> {
  public:
    void* sysData() override { return handle; }
    void deleteModule() override { setenv("FAILING_MODULE_DELETED", "yes", 1); }
    void initApp() override {
        odedRegCmds()->addReactor(&reactor);
        if (Wish() == "start") throw OdError(u"no place to start");
    }
    void uninitApp() override {
        if (Wish() == "stop") throw std::runtime_error("no way to stop");
        odedRegCmds()->removeReactor(&reactor);
    }
    OdString moduleName() const override { return u"failing"; }

    void* handle = nullptr;

  private:
    Reactor reactor;
};

Module module;

}  // namespace

extern "C" {

OdRxModule* odrxCreateModuleObject(void** holder) {
    if (*holder) module.handle = std::exchange(*holder, nullptr);
    return &module;
}

void odrxGetAPIVersion(uint32_t* major, uint32_t* minor, uint32_t* corrective, uint32_t* build) {
    *major = 26;
    *minor = 8;
    *corrective = 0;
    *build = 54758;
}
}
