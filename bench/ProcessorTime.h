// Times of the processor: what another program does meanwhile does not count.
#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

// Milliseconds that this process has used.
inline double ProcessorTime() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

template <class Work>
double ProcessorTimeOf(const Work& work) {
    const double begin = ProcessorTime();
    work();
    return ProcessorTime() - begin;
}

inline double MedianOf(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}
