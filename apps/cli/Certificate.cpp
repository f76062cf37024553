// The comparison of a saved drawing with the file before, in two halves side by side.
#include "apps/cli/Certificate.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "apps/cli/CertificateComparison.h"
#include "apps/cli/MappedFile.h"
#include "apps/cli/SecondThread.h"

namespace cli {

namespace {

// Where a record begins in both files, near the middle.
struct Seam {
    dxf::RecordIndex record;
    size_t before, after;
};

dxf::RecordIndex FirstRecordBehind(const dxf::Store& store, size_t offset) {
    dxf::RecordIndex first = 0, last = store.FileCount();
    while (first < last) {
        const dxf::RecordIndex middle = first + (last - first) / 2;
        if (store.At(middle).offset < offset) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return first;
}

// A record of the file before as it stands there, in the new file about a place.
std::optional<size_t> FindNear(std::string_view after, std::string_view record, size_t place) {
    const size_t window = after.size() / 256 + 4096;
    const size_t from = place - std::min(place, window);
    if (from >= after.size()) return std::nullopt;
    const std::string_view near = after.substr(from, 2 * window);
    const std::boyer_moore_horspool_searcher searcher(record.begin(), record.end());
    const auto found = std::search(near.begin(), near.end(), searcher);
    if (found == near.end()) return std::nullopt;
    return from + static_cast<size_t>(found - near.begin());
}

// The new file has grown evenly, or behind the middle alone, as records make it. A wrong seam does
// no harm: the comparison up to it does not end at it then.
std::optional<Seam> FindSeam(const dxf::Store& store, std::string_view after) {
    constexpr dxf::RecordIndex kTries = 4;
    const std::string_view before = store.Original();
    const double growth = static_cast<double>(after.size()) / static_cast<double>(before.size());
    const dxf::RecordIndex middle = FirstRecordBehind(store, before.size() / 2);
    for (dxf::RecordIndex i = middle; i < middle + kTries && i + 1 < store.FileCount(); ++i) {
        if (store.At(i).handle == 0) continue;
        const size_t place = store.At(i).offset;
        const std::string_view record = before.substr(place, store.At(i + 1).offset - place);
        const auto grown = static_cast<size_t>(static_cast<double>(place) * growth);
        for (const size_t guess : {grown, place}) {
            if (const auto found = FindNear(after, record, guess)) return Seam{i, place, *found};
        }
    }
    return std::nullopt;
}

// The new file as each of two threads sees it, and what each is to do as it goes on.
struct View {
    std::string_view after;
    Passed passed;
};

Certificate CompareWhole(const dxf::Store& store, const View& view, const Expectation& expected) {
    const Stretch all{0, store.FileCount(), 0, store.Original().size(), 0, view.after.size()};
    Comparison comparison(store, view.after, expected, all, view.passed);
    comparison.Run();
    return comparison.Conclude();
}

// Nothing where the two halves hold another difference than is expected: one comparison of the
// whole can tell it better.
std::optional<Certificate> CompareHalves(const dxf::Store& store, const View& front,
                                         const View& back, const Expectation& expected) {
    const std::optional<Seam> seam = FindSeam(store, front.after);
    if (!seam) return std::nullopt;
    const Stretch head{0, seam->record, 0, seam->before, 0, seam->after};
    const Stretch tail{seam->record, store.FileCount(), seam->before, store.Original().size(),
                       seam->after,  back.after.size()};
    Comparison first(store, front.after, expected, head, front.passed);
    Comparison second(store, back.after, expected, tail, back.passed);
    SideBySide([&] { first.Run(); }, [&] { second.Run(); });
    if (first.FoundOthers() || second.FoundOthers()) return std::nullopt;
    first.Add(second);
    return first.Conclude();
}

Certificate Compare(const dxf::Store& store, const View& front, const View& back,
                    Expectation expected) {
    SortByHandle(expected.texts);
    const auto halves = CompareHalves(store, front, back, expected);
    return halves && halves->Holds() ? *halves : CompareWhole(store, front, expected);
}

}  // namespace

std::string Certificate::Line() const {
    std::string line = std::to_string(strings) + " strings changed, " + std::to_string(others) +
                       " other values changed";
    if (records > 0) line += ", " + std::to_string(records) + " records written";
    return line;
}

Certificate Certify(const dxf::Store& before, std::string_view after, Expectation expected,
                    const CertificateProgress& progress) {
    const double size = static_cast<double>(before.Original().size());
    const auto tell = [&](size_t position, size_t) {
        if (progress) progress(static_cast<double>(position) / size);
    };
    return Compare(before, {after, tell}, {after, [](size_t, size_t) {}}, std::move(expected));
}

Certificate CertifyFile(const dxf::Store& before, const std::string& afterPath,
                        Expectation expected, const CertificateProgress& progress) {
    const MappedFile front(afterPath), back(afterPath);
    const double size = static_cast<double>(before.Original().size());
    const auto tell = [&](size_t position, size_t afterPosition) {
        front.DropBefore(afterPosition);
        if (progress) progress(static_cast<double>(position) / size);
    };
    const auto drop = [&](size_t, size_t afterPosition) { back.DropBefore(afterPosition); };
    return Compare(before, {front.Bytes(), tell}, {back.Bytes(), drop}, std::move(expected));
}

}  // namespace cli
