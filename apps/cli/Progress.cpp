// Drawing of the progress bar.
#include "apps/cli/Progress.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace cli {

namespace {

using namespace std::chrono_literals;
constexpr auto kPatience = 1s;
constexpr auto kPace = 100ms;
constexpr int kBarWidth = 40;

}  // namespace

Progress::Progress(const GeneralOptions& options)
    : patience(options.progress ? 0s : kPatience),
      tells(options.verbose),
      shows(!options.quiet && (options.progress || isatty(STDERR_FILENO) != 0)) {
    if (shows) drawing = std::thread([this] { DrawAlong(); });
}

Progress::~Progress() { End(); }

void Progress::DrawAlong() {
    std::unique_lock lock(mutex);
    const auto isOver = [this] { return !shows; };
    for (auto next = begin + patience; !ended.wait_until(lock, next, isOver);) {
        Draw();
        next = Clock::now() + kPace;
    }
}

void Progress::End() {
    {
        const std::lock_guard lock(mutex);
        TellDuration();
        Erase();
        phase.clear();
        shows = false;
    }
    ended.notify_all();
    if (drawing.joinable()) drawing.join();
}

void Progress::Phase(const std::string& name) {
    const std::lock_guard lock(mutex);
    TellDuration();
    phase = name;
    phaseBegin = Clock::now();
    reached = 0;
    if (shows && phaseBegin - begin >= patience) Draw();
}

void Progress::TellDuration() {
    if (!tells || phase.empty()) return;
    Erase();
    const std::chrono::duration<double> seconds = Clock::now() - phaseBegin;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::fprintf(stderr, "%s: %.3f s, peak memory %ld MB\n", phase.c_str(), seconds.count(),
                 usage.ru_maxrss / 1024);
}

void Progress::Erase() {
    if (drawn) std::fputs("\r\x1b[K", stderr);
    drawn = false;
}

void Progress::Draw() {
    if (phase.empty()) return;
    const double fraction = std::clamp<double>(reached, 0, 1);
    const int full = static_cast<int>(fraction * kBarWidth);
    const std::string bar = std::string(static_cast<size_t>(full), '#') +
                            std::string(static_cast<size_t>(kBarWidth - full), '.');
    std::fprintf(stderr, "\r\x1b[K%s [%s] %3d %%", phase.c_str(), bar.c_str(),
                 static_cast<int>(fraction * 100));
    std::fflush(stderr);
    drawn = true;
}

}  // namespace cli
