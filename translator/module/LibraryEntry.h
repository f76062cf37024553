// What the module knows of itself as a loaded library.
#pragma once

#include "platform/win32/Types.h"

struct CTQExtensionModule {
    bool initialized = false;    // between the library's constructor and its destructor
    HMODULE instance = nullptr;  // what commands hand to the host's resource scope
};

const CTQExtensionModule& ExtensionModule();
