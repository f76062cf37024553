// What the benchmarks of the dictionary share: times of the processor, kernel included, and the
// sqlite3 program that prints the table of terms.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <vector>

#include "host/Host.h"

// Seconds that this process (RUSAGE_SELF) or its children have used.
inline double ProcessorSeconds(int who) {
    rusage usage{};
    ::getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

inline double MedianSeconds(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The median of five runs.
inline double MedianSeconds(int who, const std::function<void()>& work) {
    std::vector<double> times;
    for (int run = 0; run < 5; ++run) {
        const double begin = ProcessorSeconds(who);
        work();
        times.push_back(ProcessorSeconds(who) - begin);
    }
    return MedianSeconds(times);
}

inline void PrintTable(const char* file) {
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    const char* arguments[] = {"sqlite3", file, "select * from BDTRANSLATOR", nullptr};
    pid_t child = 0;
    const int failed = ::posix_spawnp(&child, "sqlite3", &actions, nullptr,
                                      const_cast<char**>(arguments), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed || ::waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error("sqlite3 did not print the table");
    }
}

// Seconds that sqlite3 takes for it.
inline double PrintSeconds(const char* file) {
    return MedianSeconds(RUSAGE_CHILDREN, [file] { PrintTable(file); });
}

// A host on that dictionary, with settings of its own.
inline host::HostOptions OptionsFor(const char* file, const QTemporaryDir& folder) {
    host::HostOptions options;
    options.settingsFile = folder.filePath("settings.ini");
    options.logToStderr = true;
    options.databaseUrl = QStringLiteral("sqlite:") + file;
    return options;
}

// Prints the figure beside what is asked of it; false when it is missed.
inline bool AtMost(const char* figure, double measured, double asked) {
    const bool met = measured <= asked;
    std::printf("%-62s %8.2f  <= %6.2f  %s\n", figure, measured, asked, met ? "ok" : "MISSED");
    return met;
}
