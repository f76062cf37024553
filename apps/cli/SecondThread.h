// The one thread that works beside the main one.
#pragma once

#include <functional>
#include <future>
#include <memory>
#include <type_traits>
#include <utility>

namespace cli {

// A result that is on its way; waited for at the latest when it goes out of scope, for the work may
// use what its caller holds.
template <class Result>
class Awaited {
  public:
    explicit Awaited(std::future<Result> future) : future(std::move(future)) {}
    Awaited(Awaited&&) noexcept = default;
    ~Awaited() {
        if (future.valid()) future.wait();
    }
    Result Get() { return future.get(); }  // throws what the work threw

  private:
    std::future<Result> future;
};

// Does the work after what was given before. A thread that stays keeps its part of the heap, so
// that the memory of one piece of work serves the next.
void RunOnSecondThread(std::function<void()> work);

template <class Work>
auto OnSecondThread(Work work) {
    using Result = std::invoke_result_t<Work>;
    auto task = std::make_shared<std::packaged_task<Result()>>(std::move(work));
    Awaited<Result> result(task->get_future());
    RunOnSecondThread([task] { (*task)(); });
    return result;
}

// Does both, the second one on the second thread, and ends when both have ended. Of two exceptions
// the first one's counts.
template <class First, class Second>
void SideBySide(const First& first, const Second& second) {
    auto beside = OnSecondThread([&second] { second(); });
    first();
    beside.Get();
}

// The same where both open objects of the current drawing.
void SideBySideInTheDrawing(const std::function<void()>& first,
                            const std::function<void()>& second);

}  // namespace cli
