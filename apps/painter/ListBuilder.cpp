// Building the parts of a display list, by as many threads as there are processors.
#include "apps/painter/ListBuilder.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <span>
#include <thread>

#include "apps/painter/Entities.h"
#include "apps/painter/ListParts.h"

namespace painter {

namespace {

constexpr size_t kStep = 1024;          // entities between two looks at the clock of the caller
constexpr size_t kLeastOfPart = 10000;  // entities; a thread for fewer does not pay
constexpr size_t kMostThreads = 8;
constexpr size_t kPartsOfThread = 3;  // so that one that is slower gets fewer

using Records = std::span<const dxf::RecordIndex>;

struct Made {
    BuiltPart built;
    std::vector<Fonts::Choice> fonts;  // by their numbers in the part
};

// Room for more than drawings mostly have: what is not used costs no memory, and growing does.
void Reserve(ListPart& part, Records records) {
    part.items.reserve(records.size() * 3);  // with attributes and what blocks hold
    part.points.reserve(records.size() * 8);
    part.texts.reserve(records.size() * 2);
    part.characters.reserve(records.size() * 32);
}

// What the threads share. Each takes the next part that nobody has taken yet.
class Work {
  public:
    Work(const dxf::Store& store, Records records, size_t parts, size_t limit)
        : store(store), records(records), limit(limit), made(parts) {}

    // Until all parts are taken, or more is placed than there may be. `goesOn` is asked now and
    // then; false, or what a thread throws, ends the work of all.
    template <class GoesOn>
    void Do(Fonts& fonts, const GoesOn& goesOn) {
        try {
            ReadParts(fonts, goesOn);
        } catch (...) {
            ended = true;
            throw;
        }
    }
    bool HasEnded() const { return ended; }
    double Share() const {
        return static_cast<double>(done) / static_cast<double>(std::max<size_t>(records.size(), 1));
    }
    DisplayList Joined(const std::shared_ptr<Fonts>& fonts);

  private:
    // A thread has fonts, tables and blocks of its own: each notes what it has looked up.
    template <class GoesOn>
    void ReadParts(Fonts& fonts, const GoesOn& goesOn) {
        Drawing drawing(store, fonts);
        for (size_t number; placed <= limit && (number = next++) < made.size();) {
            BuiltPart built;
            if (!Read(drawing, PartOf(number), built, goesOn)) ended = true;
            if (ended) return;
            placed += built.placed;
            made[number] = {std::move(built), fonts.Choices()};
        }
    }
    Records PartOf(size_t number) const {
        const size_t begin = records.size() * number / made.size();
        return records.subspan(begin, records.size() * (number + 1) / made.size() - begin);
    }
    template <class GoesOn>
    bool Read(Drawing& drawing, Records mine, BuiltPart& built, const GoesOn& goesOn) {
        Reserve(built.part, mine);
        Placer placer(drawing, built, limit);
        EntityReader reader(drawing, placer, false);
        for (size_t i = 0; i < mine.size() && !placer.IsFull(); ++i) {
            if (i % kStep == 0) {
                if (ended || !goesOn()) return false;
                done += std::min(kStep, mine.size() - i);
            }
            reader.Read(mine[i]);
        }
        return true;
    }

    const dxf::Store& store;
    const Records records;
    const size_t limit;
    std::vector<Made> made;
    std::atomic<size_t> next = 0, done = 0, placed = 0;
    std::atomic<bool> ended = false;
};

// Up to the part with which there is more than may be; so it does not matter which thread was
// faster.
DisplayList Work::Joined(const std::shared_ptr<Fonts>& fonts) {
    DisplayList list;
    list.fonts = fonts;
    size_t sum = 0;
    for (Made& part : made) {
        if (list.cut) break;
        sum += part.built.placed;
        const std::vector<uint16_t> numbers = fonts->NumbersOf(part.fonts);
        Append(list, std::move(part.built), numbers);
        list.cut |= sum > limit;
    }
    return list;
}

}  // namespace

std::optional<DisplayList> BuildDisplayList(OdDbDatabase& drawing, const BuildOptions& options) {
    const dxf::Store& store = drawing.store();
    constexpr size_t kLeast = 4'000'000;
    const size_t limit = options.limit ? options.limit : kLeast + size_t{4} * store.Count();
    const std::vector<dxf::RecordIndex> records = EntitiesOf(drawing, options.pages);
    const size_t threads = std::clamp<size_t>(std::thread::hardware_concurrency(), 1, kMostThreads);
    const size_t parts =
        std::clamp<size_t>(records.size() / kLeastOfPart, 1, threads * kPartsOfThread);
    Work work(store, records, parts, limit);
    std::vector<std::future<void>> others;
    while (others.size() + 1 < std::min(threads, parts)) {
        others.push_back(std::async(std::launch::async, [&work] {
            Fonts fonts;
            work.Do(fonts, [] { return true; });
        }));
    }
    const auto fonts = std::make_shared<Fonts>();
    work.Do(*fonts, [&] { return !options.progress || options.progress(work.Share()); });
    for (auto& other : others) other.get();
    if (work.HasEnded()) return std::nullopt;
    return work.Joined(fonts);
}

}  // namespace painter
