// OdStaticRxObject: an object that its owner holds by value and nobody counts.
#pragma once

#include "platform/drawing/RxObject.h"

// Smart pointers may be made to it; they do not keep it alive.
template <class T>
class OdStaticRxObject : public T {
  public:
    using T::T;
    void addRef() override {}
    void release() override {}
    long numRefs() const override { return 1; }
};
