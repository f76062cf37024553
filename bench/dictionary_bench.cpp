// Measures reading and saving of a dictionary in SQLite, through the host as modules do it, against
// the sqlite3 program that prints the same table: dictionary_bench FILE. Times are of the
// processor, kernel included, medians of five runs; the exit status is 1 when a bound is missed.
#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <stdexcept>

#include "bench/DictionaryTimes.h"
#include "host/Host.h"
#include "translator/langdb/Banco.h"
#include "translator/langdb/IBDIdiomas.h"

namespace {

constexpr size_t kChangedRows = 10;

double PeakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

using Terms = std::unique_ptr<traducaoTQ::IBDIdiomas::structTraducoes>;

Terms ReadTerms() {
    Terms terms = traducaoTQ::IBDIdiomas().GetTerms();
    if (!terms || terms->terms.size() < kChangedRows) {
        throw std::runtime_error("the dictionary cannot be read or has too few terms");
    }
    return terms;
}

bool Measure(const char* file) {
    QTemporaryDir folder;
    host::Host host(OptionsFor(file, folder));
    host.OpenDatabase();
    const auto database = std::static_pointer_cast<host::Database>(traducaoTQ::BancoDeDados());

    const double print = PrintSeconds(file);
    const double before = PeakMegabytes();
    Terms terms = ReadTerms();
    std::printf("%zu terms, peak memory of the first reading %.0f MB\n", terms->terms.size(),
                PeakMegabytes() - before);
    const double read = MedianSeconds(RUSAGE_SELF, [&] { terms = ReadTerms(); });
    const double save = MedianSeconds(RUSAGE_SELF, [&] {
        for (size_t i = 0; i < kChangedRows; ++i) {
            traducaoTQ::IBDIdiomas().SaveTerm(terms->terms[i]);
        }
        database->Commit();
    });
    std::printf("sqlite3 prints %.3f s, read %.3f s, save %.3f s\n", print, read, save);
    const bool fast = AtMost("reading the dictionary against sqlite3 printing it", read / print, 3);
    return AtMost("saving ten rows against reading the dictionary", save / read, 1) && fast;
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
