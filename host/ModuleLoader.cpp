// Loading by dlopen, with the checks that come before a module is trusted.
#include "host/ModuleLoader.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>

#include "host/Error.h"
#include "host/FailureLine.h"
#include "platform/win32/Modules.h"

namespace host {

namespace {

using Version = std::array<uint32_t, 4>;

constexpr Version kApiVersion{26, 8, 0, 54758};

Error Failure(const std::string& path, const std::string& reason) {
    return Error("module " + path + ": " + reason);
}

void* Symbol(void* library, const std::string& path, const char* name) {
    if (void* symbol = dlsym(library, name)) return symbol;
    throw Failure(path, std::string("it has no ") + name + " and is no module of this program");
}

std::string Text(const Version& version) {
    std::string text;
    for (uint32_t part : version) text += (text.empty() ? "" : ".") + std::to_string(part);
    return text;
}

void CheckVersion(const std::string& path, OdRxGetAPIVersion* getVersion) {
    Version version{};
    getVersion(&version[0], &version[1], &version[2], &version[3]);
    if (version != kApiVersion) {
        throw Failure(path, "it was built for version " + Text(version) + ", this program needs " +
                                Text(kApiVersion) + "; install the module that belongs to it");
    }
}

}  // namespace

ModuleLoader::ModuleLoader(std::function<void(const OdString&)> log) : log(std::move(log)) {}

ModuleLoader::~ModuleLoader() { UnloadAll(); }

OdRxModule* ModuleLoader::Load(const std::string& nativePath) {
    void* library = dlopen(nativePath.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) throw Failure(nativePath, dlerror());
    auto getVersion =
        reinterpret_cast<OdRxGetAPIVersion*>(Symbol(library, nativePath, "odrxGetAPIVersion"));
    auto create = reinterpret_cast<OdRxCreateModuleObject*>(
        Symbol(library, nativePath, "odrxCreateModuleObject"));
    CheckVersion(nativePath, getVersion);

    HMODULE holder = ModuleOfAddress(reinterpret_cast<void*>(create));
    OdRxModule* module = create(&holder);
    if (!module) throw Failure(nativePath, "it made no module object");
    // A second load of one library gives the object that runs already.
    if (std::find(modules.begin(), modules.end(), module) != modules.end()) return module;
    Start(nativePath, module);
    modules.push_back(module);
    return module;
}

void ModuleLoader::UnloadAll() {
    while (!modules.empty()) {
        OdRxModule* module = modules.back();
        modules.pop_back();
        Stop(module);
    }
}

// A start that failed half way may have told the host of objects of the module already.
void ModuleLoader::Start(const std::string& path, OdRxModule* module) {
    try {
        module->initApp();
    } catch (...) {
        const OdString reason(FailureLine(std::current_exception()));
        Stop(module);
        throw Failure(path, "its start failed: " + reason.narrowText());
    }
}

// A module whose stop failed stays: the host may know objects of it still.
void ModuleLoader::Stop(OdRxModule* module) {
    try {
        module->uninitApp();
        module->deleteModule();
    } catch (...) {
        log(module->moduleName() + u" : " + OdString(FailureLine(std::current_exception())));
    }
}

}  // namespace host
