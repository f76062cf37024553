// Measures the drawing store against plain loops, a plain write and dxflib on one ASCII DXF file,
// all in one run: dxf_bench FILE. Prints each figure as a ratio beside what is asked, medians of
// five runs; the exit status is 1 when a bound is missed.
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/drawing/dxf/Store.h"

namespace {

constexpr size_t kRuns = 5;

using Clock = double (*)();

double WallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Time of the processor, kernel included: what computes in one thread is measured by it, since
// other programs on the machine do not distort it. What waits for the disk or shares its work
// between two threads is measured by the wall, and so is what it is compared with.
double ProcessorSeconds() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

double Seconds(Clock clock, const std::function<void()>& work) {
    const double begin = clock();
    work();
    return clock() - begin;
}

// The medians of several works that take turns, so that a busy moment of the machine hits them all.
template <size_t count>
std::array<double, count> Medians(Clock clock,
                                  const std::array<std::function<void()>, count>& works) {
    std::array<std::array<double, kRuns>, count> times;
    for (size_t run = 0; run < kRuns; ++run)
        for (size_t i = 0; i < count; ++i) times[i][run] = Seconds(clock, works[i]);
    std::array<double, count> medians;
    for (size_t i = 0; i < count; ++i) {
        std::sort(times[i].begin(), times[i].end());
        medians[i] = times[i][kRuns / 2];
    }
    return medians;
}

// In one allocation: memory that was used and freed before would have to be cleared again by the
// loads that are measured.
std::string ReadWhole(const std::string& path) {
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::ifstream(path, std::ios::binary).read(bytes.data(), std::streamsize(bytes.size()));
    return bytes;
}

size_t g_sink;  // keeps results alive

void ScanLines(std::string_view bytes) {
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    size_t lines = 0;
    while (at < end) {
        const void* found = std::memchr(at, '\n', size_t(end - at));
        ++lines;
        if (!found) break;
        at = static_cast<const char*>(found) + 1;
    }
    g_sink += lines;
}

void ParseWithDxflib(const std::string& path) {
    DL_Dxf parser;
    DL_CreationAdapter adapter;
    if (!parser.in(path, &adapter)) throw std::runtime_error("dxflib cannot read " + path);
}

// Every text value of the drawing by way of the hints, as a scan of the translator meets them. That
// of a block's own record is the path of a reference to another file.
std::vector<dxf::RecordIndex> WalkTexts(const dxf::Store& store) {
    std::vector<dxf::RecordIndex> texts;
    dxf::Group group;
    for (auto i = store.First(); i != dxf::kNoRecord; i = store.Next(i)) {
        const dxf::Record& record = store.At(i);
        if (record.section != dxf::Section::Entities && record.section != dxf::Section::Blocks)
            continue;
        const bool hasText = record.text != 0 && record.type != dxf::RecordType::Block;
        if (hasText && store.Groups(i, record.text).Next(group)) {
            g_sink += store.Codec().Decode(group.value).size();
            texts.push_back(i);
        }
        if (record.xdata == 0) continue;
        dxf::GroupReader chain = store.Groups(i, record.xdata);
        while (chain.Next(group)) g_sink += group.value.size();
    }
    return texts;
}

void ReadAllGroups(const dxf::Store& store) {
    dxf::GroupReader groups = store.OriginalGroups();
    dxf::Group group;
    while (groups.Next(group)) g_sink += size_t(group.code);
}

void EditTexts(dxf::Store& store, const std::vector<dxf::RecordIndex>& texts) {
    for (size_t i = 0; i < texts.size(); i += 10) {
        dxf::GroupReader groups = store.Groups(texts[i], store.At(texts[i]).text);
        dxf::Group group;
        groups.Next(group);
        const std::string_view bytes = store.Bytes(texts[i]);
        dxf::GroupWriter writer = store.NewWriter(texts[i]);
        writer.Raw(bytes.substr(0, group.begin));
        writer.String(group.code, "Uebersetzung " + std::to_string(i));
        store.Replace(texts[i], writer.Raw(bytes.substr(group.end)).Take());
    }
}

void WritePlainly(const std::string& path, const std::string& bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    for (size_t at = 0; at < bytes.size();) {
        const ssize_t written = ::write(file, bytes.data() + at, bytes.size() - at);
        if (written < 0) throw std::runtime_error("cannot write " + path);
        at += size_t(written);
    }
    ::fsync(file);
    ::close(file);
}

// Peak memory in bytes of load, walk, edit and save in a process of its own.
uint64_t PeakMemory(const std::string& path, const std::string& target) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            const auto store = dxf::Store::Read(path);
            EditTexts(*store, WalkTexts(*store));
            store->Save(target);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "dxf_bench: %s\n", error.what());
            ::_exit(1);
        }
        ::_exit(0);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    if (status != 0) throw std::runtime_error("the memory measurement failed");
    return uint64_t(usage.ru_maxrss) * 1024;
}

bool g_missed = false;

void Print(const char* figure, double ratio, double asked, bool atLeast) {
    const bool met = atLeast ? ratio >= asked : ratio <= asked;
    std::printf("%-62s %8.2f  %s %6.2f  %s\n", figure, ratio, atLeast ? ">=" : "<=", asked,
                met ? "ok" : "MISSED");
    g_missed |= !met;
}

void Measure(const std::string& path) {
    const std::string saved = path + ".saved", plain = path + ".plain";
    const uint64_t size = std::filesystem::file_size(path);
    // First, while this process is still small.
    const double peak = double(PeakMemory(path, saved));
    std::string bytes = ReadWhole(path);
    const auto [scan, load] =
        Medians<2>(WallSeconds, {[&] { ScanLines(bytes); }, [&] { dxf::Store::Read(path); }});
    const double busy = Seconds(ProcessorSeconds, [&] { dxf::Store::Read(path); });
    const auto [dxflib] = Medians<1>(WallSeconds, {[&] { ParseWithDxflib(path); }});
    const auto store = dxf::Store::Read(path);
    std::vector<dxf::RecordIndex> texts;
    const auto [walk, reader, alone] =
        Medians<3>(ProcessorSeconds, {
                                         [&] { texts = WalkTexts(*store); },
                                         [&] { ReadAllGroups(*store); },
                                         [&] { ScanLines(bytes); },
                                     });
    const double edit = Seconds(ProcessorSeconds, [&] { EditTexts(*store, texts); });
    bytes = store->ToBytes();
    const auto [write, save] = Medians<2>(WallSeconds, {
                                                           [&] { WritePlainly(plain, bytes); },
                                                           [&] { store->Save(saved); },
                                                       });
    if (ReadWhole(saved) != bytes)
        throw std::runtime_error("the saved file is not what was edited");
    std::filesystem::remove(saved);
    std::filesystem::remove(plain);

    std::printf("%s: %.1f MB, %u records, %zu texts\n", path.c_str(), double(size) / 1e6,
                unsigned(store->FileCount()), texts.size());
    std::printf(
        "memchr scan %.1f ms, load %.1f ms (processors %.1f ms), dxflib %.0f ms, walk %.1f ms, "
        "edit %.1f ms, groups %.1f ms, plain write %.1f ms, save %.1f ms, peak %.1f MB\n",
        scan * 1e3, load * 1e3, busy * 1e3, dxflib * 1e3, walk * 1e3, edit * 1e3, reader * 1e3,
        write * 1e3, save * 1e3, peak / 1e6);
    Print("load, speed against a memchr line scan of bytes in memory", scan / load, 0.75, true);
    Print("load, speed against dxflib", dxflib / load, 18, true);
    Print("walk of all texts and extended data, speed against the load", load / walk, 1, true);
    Print("all groups one by one, speed against a memchr line scan", alone / reader, 0.6, true);
    Print("save with 10 % of the texts edited, speed against a plain write", write / save, 0.7,
          true);
    Print("peak memory of load, walk, edit, save over 1.6 x file + 16 MB",
          peak / (1.6 * double(size) + 16e6), 1, false);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: dxf_bench FILE\n");
        return 2;
    }
    try {
        Measure(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dxf_bench: %s\n", error.what());
        return 1;
    }
    return g_missed ? 1 : 0;
}
