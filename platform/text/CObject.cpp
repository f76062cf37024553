// The run-time class of CObject.
#include "platform/text/CObject.h"

const CRuntimeClass* CObject::GetThisClass() {
    static const CRuntimeClass type{"CObject", nullptr};
    return &type;
}

const CRuntimeClass* CObject::GetRuntimeClass() const { return GetThisClass(); }
