// The loop of the worker thread.
#include "host/WorkQueue.h"

#include <future>
#include <memory>

namespace host {

WorkQueue::WorkQueue(OnIdle onIdle, std::chrono::milliseconds idleAfter)
    : onIdle(std::move(onIdle)), idleAfter(idleAfter), thread([this] { Loop(); }) {}

WorkQueue::~WorkQueue() {
    {
        std::lock_guard lock(mutex);
        ending = true;
    }
    changed.notify_one();
    thread.join();
}

void WorkQueue::Submit(Work work) {
    {
        std::lock_guard lock(mutex);
        queue.push_back(std::move(work));
    }
    changed.notify_one();
}

void WorkQueue::RunAndWait(const Work& work) {
    // Shared: the waiting thread may be gone before set_value has returned.
    const auto done = std::make_shared<std::promise<void>>();
    Submit([&work, done] {
        work();
        done->set_value();
    });
    done->get_future().wait();
}

void WorkQueue::Loop() {
    for (bool last = false; !last;) {
        if (const Work work = Next(last)) {
            burst = true;
            work();
        } else if (burst) {
            burst = !onIdle();
        }
    }
}

WorkQueue::Work WorkQueue::Next(bool& last) {
    std::unique_lock lock(mutex);
    const auto ready = [this] { return ending || !queue.empty(); };
    if (burst) {
        changed.wait_for(lock, idleAfter, ready);
    } else {
        changed.wait(lock, ready);
    }
    if (queue.empty()) {
        last = ending;
        return {};
    }
    Work work = std::move(queue.front());
    queue.pop_front();
    return work;
}

}  // namespace host
