// The one thread that works beside the main one.
#include "apps/cli/SecondThread.h"

#include "host/WorkQueue.h"
#include "platform/drawing/SecondThread.h"

namespace cli {

void RunOnSecondThread(std::function<void()> work) {
    static host::WorkQueue thread([] { return true; }, std::chrono::hours(1));
    thread.Submit(std::move(work));
}

void SideBySideInTheDrawing(const std::function<void()>& first,
                            const std::function<void()>& second) {
    SideBySide(first, [&] {
        const OdDbSecondThread views;
        second();
    });
}

}  // namespace cli
