// OdDbReadingThread: a second thread that reads a drawing beside the first.
#pragma once

#include "platform/drawing/ViewTable.h"

// While it lives, the thread that made it may open objects of any database for reading, as another
// thread does at the same time; nobody may change a database meanwhile. The thread has views of its
// own, which must end before it does.
class OdDbReadingThread {
  public:
    OdDbReadingThread();
    ~OdDbReadingThread();
    OdDbReadingThread(const OdDbReadingThread&) = delete;
    OdDbReadingThread& operator=(const OdDbReadingThread&) = delete;

    // The views of this thread where it is one that reads beside another, else those given.
    static ViewTable& viewsOr(ViewTable& others);

  private:
    ViewTable views;
};
