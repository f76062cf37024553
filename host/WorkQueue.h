// A thread that runs work in the order submitted and tells when it has fallen idle.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace host {

// Work must not throw. onIdle runs on the same thread after each burst: when nothing has come for
// idleAfter, and at the end. As long as it returns false it runs again after that time.
class WorkQueue {
  public:
    using Work = std::function<void()>;
    using OnIdle = std::function<bool()>;

    WorkQueue(OnIdle onIdle, std::chrono::milliseconds idleAfter);
    ~WorkQueue();  // runs everything that has been submitted first
    void Submit(Work work);
    void RunAndWait(const Work& work);  // in its turn; not from the thread itself

  private:
    void Loop();
    // The next piece of work; an empty one when the queue has fallen idle or is to end.
    Work Next(bool& ending);

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Work> queue;
    OnIdle onIdle;
    std::chrono::milliseconds idleAfter;
    bool ending = false;
    bool burst = false;  // onIdle has not yet done with what ran; used by the thread alone
    std::thread thread;  // last: it uses all of the others
};

}  // namespace host
