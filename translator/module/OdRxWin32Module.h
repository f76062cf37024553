// OdRxWin32Module: the module object of a library, counted and with the library's handle.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/text/OdString.h"
#include "platform/win32/Modules.h"

// Made once per library, by odrxCreateModuleObject. It ends only through deleteModule: a reference
// count of 0 leaves it alone.
template <class T, class TBase>
class OdRxWin32Module : public T {
  public:
    // The object of the library, made at the first call, which also empties the holder. Later calls
    // leave their holder as it is.
    static TBase* CreateModule(HMODULE& handleHolder) {
        if (!singleton) {
            singleton = new OdRxWin32Module(handleHolder);
            handleHolder = nullptr;
        }
        return singleton;
    }

    void addRef() override { ++refCount; }
    void release() override { --refCount; }
    long numRefs() const override { return refCount; }

    HMODULE sysData() override { return moduleHandle; }
    void deleteModule() override {
        singleton = nullptr;
        delete this;
    }
    OdString moduleName() const override {
        char16_t name[MAX_PATH];
        const DWORD length = GetModuleFileNameW(moduleHandle, name, MAX_PATH);
        return length ? OdString(name) : OdString();
    }

  private:
    explicit OdRxWin32Module(HMODULE handle) : moduleHandle(handle) {}

    std::atomic<int32_t> refCount = 0;
    HMODULE moduleHandle;

    inline static OdRxWin32Module* singleton = nullptr;
};
