// The comparison of a saved drawing with the file before, part by part on two threads.
#include "apps/cli/Certificate.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "apps/cli/CertificateComparison.h"
#include "apps/cli/MappedFile.h"
#include "apps/cli/SecondThread.h"
#include "platform/drawing/DrawingStructure.h"

namespace cli {

namespace {

// Where a record begins in both files.
struct Seam {
    dxf::RecordIndex record = 0;
    size_t before = 0, after = 0;
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
std::optional<size_t> FindNear(std::string_view after, std::string_view record, size_t place,
                               size_t window) {
    const size_t from = place - std::min(place, window);
    if (from >= after.size()) return std::nullopt;
    const std::string_view near = after.substr(from, 2 * window);
    const std::boyer_moore_horspool_searcher searcher(record.begin(), record.end());
    const auto found = std::search(near.begin(), near.end(), searcher);
    if (found == near.end()) return std::nullopt;
    return from + static_cast<size_t>(found - near.begin());
}

// A seam about a place of the file before, behind another seam. The new file has grown evenly, or
// behind that place alone, as records make it. A wrong seam does no harm: the comparison up to it
// does not end at it then.
std::optional<Seam> FindSeam(const dxf::Store& store, std::string_view after, const Seam& last,
                             size_t about) {
    constexpr dxf::RecordIndex kTries = 4;
    constexpr size_t kNarrow = 16 * 1024;
    const size_t wide = after.size() / 256 + kNarrow;
    const std::string_view before = store.Original();
    const double growth = static_cast<double>(after.size()) / static_cast<double>(before.size());
    const dxf::RecordIndex first = FirstRecordBehind(store, about);
    for (dxf::RecordIndex i = first; i < first + kTries && i + 1 < store.FileCount(); ++i) {
        const size_t place = store.At(i).offset;
        if (store.At(i).handle == 0 || place <= last.before) continue;
        const std::string_view record = before.substr(place, store.At(i + 1).offset - place);
        const size_t length = place - last.before;
        const auto grown = static_cast<size_t>(static_cast<double>(length) * growth);
        for (const size_t window : {kNarrow, wide}) {
            for (const size_t guess : {last.after + grown, last.after + length}) {
                const auto found = FindNear(after, record, guess, window);
                if (found) return Seam{i, place, *found};
            }
        }
    }
    return std::nullopt;
}

// More parts than threads, so that one that is slower gets fewer.
std::vector<Stretch> Divide(const dxf::Store& store, std::string_view after) {
    constexpr size_t kParts = 16;
    const size_t size = store.Original().size();
    std::vector<Stretch> stretches;
    Seam last;
    const auto end = [&](const Seam& seam) {
        stretches.push_back(
            {last.record, seam.record, last.before, seam.before, last.after, seam.after});
        last = seam;
    };
    for (size_t part = 1; part < kParts; ++part) {
        const auto seam = FindSeam(store, after, last, size / kParts * part);
        if (seam && seam->before > last.before && seam->after > last.after) end(*seam);
    }
    end({store.FileCount(), size, after.size()});
    return stretches;
}

// The new file as each of two threads sees it, and what each is to do as it goes on.
struct View {
    std::string_view after;
    Passed passed;
};

Certificate CompareWhole(const dxf::Store& store, const View& view, const Expectation& expected) {
    const Stretch all{0, store.FileCount(), 0, store.Original().size(), 0, view.after.size()};
    Found found(expected.texts.size());
    Comparison comparison(store, view.after, expected, found, all, view.passed);
    comparison.Run();
    return comparison.Conclude();
}

// Nothing where a part holds another difference than is expected: one comparison of the whole can
// tell it better.
std::optional<Certificate> CompareParts(const dxf::Store& store, const View& front,
                                        const View& back, const Expectation& expected,
                                        std::span<const Stretch> stretches) {
    Found found(expected.texts.size());
    std::vector<std::unique_ptr<Comparison>> parts(stretches.size());
    std::atomic<size_t> next = 0;
    const auto compare = [&](const View& view) {
        for (size_t i = next++; i < parts.size(); i = next++) {
            parts[i] = std::make_unique<Comparison>(store, view.after, expected, found,
                                                    stretches[i], view.passed);
            parts[i]->Run();
        }
    };
    SideBySide([&] { compare(front); }, [&] { compare(back); });
    for (const auto& part : parts) {
        if (part->FoundOthers()) return std::nullopt;
    }
    for (size_t i = 1; i < parts.size(); ++i) parts[0]->Add(*parts[i]);
    return parts[0]->Conclude();
}

Certificate Compare(const dxf::Store& store, const View& front, const View& back,
                    Expectation expected, std::span<const Stretch> stretches) {
    SortByHandle(expected.texts);
    if (!expected.recordKeys.empty()) expected.root = DrawingStructure(store).rootDictionary;
    const auto parts = CompareParts(store, front, back, expected, stretches);
    return parts && parts->Holds() ? *parts : CompareWhole(store, front, expected);
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
    return Compare(before, {after, tell}, {after, [](size_t, size_t) {}}, std::move(expected),
                   Divide(before, after));
}

Certificate CertifyFile(const dxf::Store& before, const std::string& afterPath,
                        Expectation expected, const CertificateProgress& progress) {
    // In a mapping of its own, since the looks all over the file would stay in memory.
    const auto stretches = Divide(before, MappedFile(afterPath).Bytes());
    const MappedFile front(afterPath), back(afterPath);
    const double size = static_cast<double>(before.Original().size());
    const auto tell = [&](size_t position, size_t afterPosition) {
        front.DropBefore(afterPosition);
        if (progress) progress(static_cast<double>(position) / size);
    };
    const auto drop = [&](size_t, size_t afterPosition) { back.DropBefore(afterPosition); };
    return Compare(before, {front.Bytes(), tell}, {back.Bytes(), drop}, std::move(expected),
                   stretches);
}

}  // namespace cli
