// Look-ups by handle, compared with a map.
#include "platform/drawing/dxf/HandleIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace dxf {
namespace {

struct Spread {
    const char* name;
    uint64_t seed;     // as the header tells it
    uint64_t highest;  // of the handles
    uint64_t jump;     // of those that come later
};

class HandlesOfADrawing : public testing::TestWithParam<Spread> {};

// Entered ones, given twice, missing, changed, and far beyond what was foreseen.
TEST_P(HandlesOfADrawing, AreFoundAsInAMap) {
    constexpr RecordIndex kCount = 3000;
    std::mt19937_64 random(7);
    RecordTable records;
    HandleIndex index(records);
    index.Reserve(kCount, GetParam().seed);
    std::map<uint64_t, RecordIndex> known;
    const auto enter = [&](uint64_t handle) {
        const RecordIndex number = records.Count();
        records.Append().handle = handle;
        EXPECT_EQ(index.Insert(number), known.try_emplace(handle, number).first->second);
    };
    for (RecordIndex i = 0; i < kCount; ++i) enter(1 + random() % GetParam().highest);
    for (int i = 0; i < 100; ++i) {
        const uint64_t handle = GetParam().highest + 1 + random() % 5000;
        if (known.contains(handle)) continue;
        const auto changed = known.begin();
        const RecordIndex number = changed->second;
        known.erase(changed);
        records[number].handle = handle;
        index.Insert(number);
        known[handle] = number;
    }
    for (uint64_t i = 1; i < 2000; ++i) enter(GetParam().highest + i * GetParam().jump);
    for (const auto& [handle, number] : known) EXPECT_EQ(index.Find(handle), number) << handle;
    for (int i = 0; i < 2000; ++i) {
        const uint64_t handle = random() % (GetParam().highest * 2);
        EXPECT_EQ(index.Find(handle), known.contains(handle) ? known[handle] : kNoRecord);
    }
    EXPECT_EQ(index.Find(UINT64_MAX), kNoRecord);
}

INSTANTIATE_TEST_SUITE_P(, HandlesOfADrawing,
                         testing::Values(Spread{"Dense", 3300, 3300, 1},
                                         Spread{"DenseAndThenFarAway", 3300, 3300, 1'000'000'007},
                                         Spread{"SeedTooLow", 1, 3300, 3},
                                         Spread{"SeedTooLowAndSparse", 1, 1 << 30, 1},
                                         Spread{"NoSeed", 0, 100'000'000, 12345},
                                         Spread{"Sparse", UINT64_MAX, uint64_t(1) << 60, 1 << 20}),
                         [](const auto& spread) { return spread.param.name; });

}  // namespace
}  // namespace dxf
