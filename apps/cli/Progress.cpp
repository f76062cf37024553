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
      shows(!options.quiet && (options.progress || isatty(STDERR_FILENO) != 0)),
      tells(options.verbose) {}

Progress::~Progress() { End(); }

void Progress::End() {
    if (drawn) std::fputs("\r\x1b[K", stderr);
    TellDuration();
    phase.clear();
    shows = drawn = false;
}

void Progress::TellDuration() const {
    if (!tells || phase.empty()) return;
    const std::chrono::duration<double> seconds = Clock::now() - phaseBegin;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::fprintf(stderr, "%s: %.3f s, peak memory %ld MB\n", phase.c_str(), seconds.count(),
                 usage.ru_maxrss / 1024);
}

void Progress::Phase(const std::string& name) {
    TellDuration();
    phase = name;
    phaseBegin = Clock::now();
    Reached(0);
}

void Progress::Reached(double fraction) {
    if (!shows) return;
    const auto now = Clock::now();
    if (now - begin < patience || (drawn && now - last < kPace)) return;
    last = now;
    Draw(std::clamp(fraction, 0.0, 1.0));
}

void Progress::Draw(double fraction) {
    const int full = static_cast<int>(fraction * kBarWidth);
    const std::string bar = std::string(static_cast<size_t>(full), '#') +
                            std::string(static_cast<size_t>(kBarWidth - full), '.');
    std::fprintf(stderr, "\r\x1b[K%s [%s] %3d %%", phase.c_str(), bar.c_str(),
                 static_cast<int>(fraction * 100));
    std::fflush(stderr);
    drawn = true;
}

}  // namespace cli
