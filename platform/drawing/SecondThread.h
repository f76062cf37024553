// OdDbSecondThread: a thread that works with a drawing beside the first.
#pragma once

#include "platform/drawing/ViewTable.h"

// While it lives, the thread that made it may open objects of any database as another thread does
// at the same time. It has views of its own, which must end before it does. Nobody may change a
// database meanwhile, with one exception: each of the two may set the texts and the extended data
// strings of objects that the other one leaves alone, where dxf::Store::CanChangeBeside holds.
class OdDbSecondThread {
  public:
    OdDbSecondThread();
    ~OdDbSecondThread();
    OdDbSecondThread(const OdDbSecondThread&) = delete;
    OdDbSecondThread& operator=(const OdDbSecondThread&) = delete;

    // The views of this thread where it is a second one, else those given.
    static ViewTable& viewsOr(ViewTable& others);

  private:
    ViewTable views;
};
