// A bar on the terminal for work that takes a while.
#pragma once

#include <chrono>
#include <string>

#include "apps/cli/Options.h"

namespace cli {

// Draws nothing unless stderr is a terminal (or --progress asks for it) and the work has taken over
// a second. With --verbose the duration of each phase, and the peak of the memory up to its end,
// are told.
class Progress {
  public:
    explicit Progress(const GeneralOptions& options);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Phase(const std::string& name);  // what is done from here on
    void Reached(double fraction);        // of the phase, from 0 to 1
    void End();                           // takes the bar away, for what is printed next

  private:
    using Clock = std::chrono::steady_clock;
    void Draw(double fraction);
    void TellDuration() const;

    std::chrono::seconds patience;
    bool shows, tells;
    bool drawn = false;
    std::string phase;
    Clock::time_point begin = Clock::now();
    Clock::time_point last = begin;
    Clock::time_point phaseBegin = begin;
};

}  // namespace cli
