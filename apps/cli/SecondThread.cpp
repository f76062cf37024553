// The one thread that works beside the main one.
#include "apps/cli/SecondThread.h"

#include <condition_variable>
#include <mutex>
#include <queue>
#include <thread>

namespace cli {

namespace {

class Worker {
  public:
    ~Worker() {
        Add({});
        thread.join();
    }
    void Add(std::function<void()> work) {
        const std::lock_guard lock(guard);
        waiting.push(std::move(work));
        arrived.notify_one();
    }

  private:
    std::function<void()> Next() {
        std::unique_lock lock(guard);
        arrived.wait(lock, [&] { return !waiting.empty(); });
        auto work = std::move(waiting.front());
        waiting.pop();
        return work;
    }
    void Run() {
        while (const auto work = Next()) work();
    }

    std::mutex guard;
    std::condition_variable arrived;
    std::queue<std::function<void()>> waiting;  // an empty function ends the thread
    std::thread thread{[this] { Run(); }};
};

}  // namespace

void RunOnSecondThread(std::function<void()> work) {
    static Worker worker;
    worker.Add(std::move(work));
}

}  // namespace cli
