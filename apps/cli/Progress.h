// A bar on the terminal for work that takes a while.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "apps/cli/Options.h"

namespace cli {

// Draws nothing unless stderr is a terminal (or --progress asks for it) and the work has taken over
// a second. A thread of its own draws, so that the bar also comes up while nobody reports. With
// --verbose the duration of each phase, and the peak of the memory up to its end, are told.
class Progress {
  public:
    explicit Progress(const GeneralOptions& options);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Phase(const std::string& name);                   // what is done from here on
    void Reached(double fraction) { reached = fraction; }  // of the phase, from 0 to 1
    void End();  // takes the bar away for good, for what is printed next

  private:
    using Clock = std::chrono::steady_clock;
    void DrawAlong();
    // These with the mutex taken.
    void Draw();
    void Erase();
    void TellDuration();

    const std::chrono::seconds patience;
    const bool tells;
    const Clock::time_point begin = Clock::now();
    std::atomic<double> reached = 0;
    std::mutex mutex;  // of everything below
    std::condition_variable ended;
    bool shows;
    bool drawn = false;
    std::string phase;
    Clock::time_point phaseBegin = begin;
    std::thread drawing;
};

}  // namespace cli
