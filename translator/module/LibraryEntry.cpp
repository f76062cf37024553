// The entry of the library: run by the loader, once when it is mapped and once when it goes.
#include "translator/module/LibraryEntry.h"

#include "platform/win32/Modules.h"

namespace {

constinit CTQExtensionModule module;

[[gnu::constructor]] void Attach() {
    if (module.initialized) return;
    module.instance = ModuleOfAddress(&module);
    module.initialized = true;
}

[[gnu::destructor]] void Detach() {
    if (module.initialized) module = {};
}

}  // namespace

const CTQExtensionModule& ExtensionModule() { return module; }
