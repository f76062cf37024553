// The one thread that works beside the main one.
#include "apps/cli/SecondThread.h"

#include "host/WorkQueue.h"

namespace cli {

void RunOnSecondThread(std::function<void()> work) {
    static host::WorkQueue thread([] { return true; }, std::chrono::hours(1));
    thread.Submit(std::move(work));
}

}  // namespace cli
