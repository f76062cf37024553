// Which views a thread works with.
#include "platform/drawing/SecondThread.h"

namespace {

thread_local ViewTable* viewsOfThread = nullptr;

}  // namespace

OdDbSecondThread::OdDbSecondThread() { viewsOfThread = &views; }

OdDbSecondThread::~OdDbSecondThread() { viewsOfThread = nullptr; }

ViewTable& OdDbSecondThread::viewsOr(ViewTable& others) {
    return viewsOfThread ? *viewsOfThread : others;
}
