// The two exports through which a host reaches the module.
#include <type_traits>

#include "translator/module/CTQTradutor.h"
#include "translator/module/OdRxWin32Module.h"

extern "C" {

OdRxModule* odrxCreateModuleObject(HMODULE* handleHolder) {
    return OdRxWin32Module<CTQTradutor, CTQTradutor>::CreateModule(*handleHolder);
}

void odrxGetAPIVersion(uint32_t* major, uint32_t* minor, uint32_t* corrective, uint32_t* build) {
    *major = 26;
    *minor = 8;
    *corrective = 0;
    *build = 54758;
}
}

// A host calls the exports by these types.
static_assert(std::is_same_v<decltype(odrxCreateModuleObject), OdRxCreateModuleObject>);
static_assert(std::is_same_v<decltype(odrxGetAPIVersion), OdRxGetAPIVersion>);
