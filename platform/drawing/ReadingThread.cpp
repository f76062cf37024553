// Which views a thread works with.
#include "platform/drawing/ReadingThread.h"

namespace {

thread_local ViewTable* viewsOfThread = nullptr;

}  // namespace

OdDbReadingThread::OdDbReadingThread() { viewsOfThread = &views; }

OdDbReadingThread::~OdDbReadingThread() { viewsOfThread = nullptr; }

ViewTable& OdDbReadingThread::viewsOr(ViewTable& others) {
    return viewsOfThread ? *viewsOfThread : others;
}
