// A module that was built for another version of the host.
#include "platform/drawing/RxModule.h"

extern "C" {

OdRxModule* odrxCreateModuleObject(void**) { return nullptr; }

void odrxGetAPIVersion(uint32_t* major, uint32_t* minor, uint32_t* corrective, uint32_t* build) {
    *major = 26;
    *minor = 7;
    *corrective = 0;
    *build = 1;
}
}
