// Measures reading and saving of a dictionary in SQLite, through the host as modules do it, against
// the sqlite3 program that prints the same table: dictionary_bench FILE. Times are of the
// processor, kernel included, medians of five runs; the exit status is 1 when a bound is missed.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <stdexcept>

#include "host/Host.h"
#include "translator/langdb/Banco.h"
#include "translator/langdb/IBDIdiomas.h"

namespace {

constexpr size_t kRuns = 5;
constexpr size_t kChangedRows = 10;

double Seconds(int who) {
    rusage usage{};
    ::getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double Median(int who, const std::function<void()>& work) {
    std::array<double, kRuns> times;
    for (double& time : times) {
        const double begin = Seconds(who);
        work();
        time = Seconds(who) - begin;
    }
    std::sort(times.begin(), times.end());
    return times[kRuns / 2];
}

double PeakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

void PrintTable(const char* file) {
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

using Terms = std::unique_ptr<traducaoTQ::IBDIdiomas::structTraducoes>;

Terms ReadTerms() {
    Terms terms = traducaoTQ::IBDIdiomas().GetTerms();
    if (!terms || terms->terms.size() < kChangedRows) {
        throw std::runtime_error("the dictionary cannot be read or has too few terms");
    }
    return terms;
}

bool Report(const char* figure, double measured, double asked) {
    const bool met = measured <= asked;
    std::printf("%-62s %8.2f  <= %6.2f  %s\n", figure, measured, asked, met ? "ok" : "MISSED");
    return met;
}

bool Measure(const char* file) {
    QTemporaryDir folder;
    host::HostOptions options;
    options.settingsFile = folder.filePath("settings.ini");
    options.logToStderr = true;
    options.databaseUrl = QStringLiteral("sqlite:") + file;
    host::Host host(options);
    host.OpenDatabase();
    const auto database = std::static_pointer_cast<host::Database>(traducaoTQ::BancoDeDados());

    const double print = Median(RUSAGE_CHILDREN, [&] { PrintTable(file); });
    const double before = PeakMegabytes();
    Terms terms = ReadTerms();
    std::printf("%zu terms, peak memory of the first reading %.0f MB\n", terms->terms.size(),
                PeakMegabytes() - before);
    const double read = Median(RUSAGE_SELF, [&] { terms = ReadTerms(); });
    const double save = Median(RUSAGE_SELF, [&] {
        for (size_t i = 0; i < kChangedRows; ++i) {
            traducaoTQ::IBDIdiomas().SaveTerm(terms->terms[i]);
        }
        database->Commit();
    });
    std::printf("sqlite3 prints %.3f s, read %.3f s, save %.3f s\n", print, read, save);
    const bool fast = Report("reading the dictionary against sqlite3 printing it", read / print, 3);
    return Report("saving ten rows against reading the dictionary", save / read, 1) && fast;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: dictionary_bench FILE\n");
        return 2;
    }
    try {
        return Measure(argv[1]) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dictionary_bench: %s\n", error.what());
        return 1;
    }
}
