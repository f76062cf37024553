// OdRxModule: what a host sees of a loaded extension library.
#pragma once

#include <cstdint>

#include "platform/drawing/RxObject.h"

class OdRxModule : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdRxModule);

    virtual void* sysData() = 0;      // the handle of the library, as the system gave it
    virtual void deleteModule() = 0;  // ends the module object; only the host calls it
    virtual void initApp() = 0;       // after loading; what it raises is the host's to handle
    virtual void uninitApp() = 0;     // before deleteModule
    virtual OdString moduleName() const = 0;  // file name of the library

  protected:
    OdRxModule() = default;
};
using OdRxModulePtr = OdSmartPtr<OdRxModule>;

// What an extension library exports, with C linkage, under the names odrxCreateModuleObject and
// odrxGetAPIVersion. The first gives the one module object of the library, which belongs to it, and
// takes over the handle that the holder has: an address inside the library, as ModuleOfAddress of
// platform/win32 gives it. The second tells the version of the SDK that the library is built on.
using OdRxCreateModuleObject = OdRxModule*(void** handleHolder);
using OdRxGetAPIVersion = void(uint32_t* major, uint32_t* minor, uint32_t* corrective,
                               uint32_t* build);
