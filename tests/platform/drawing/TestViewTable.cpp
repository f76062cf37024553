// The table of views against a map.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "platform/drawing/ViewTable.h"

namespace {

TEST(ViewTable, AgreesWithAMap) {
    std::mt19937 random(7);
    ViewTable table;
    std::map<uint32_t, OdDbObject*> model;
    for (int step = 0; step < 20000; ++step) {
        const uint32_t index = random() % 400 * 64 + random() % 3;  // many meet at one home
        if (random() % 2) {
            auto* view = reinterpret_cast<OdDbObject*>(uintptr_t(step + 1));
            table[index] = model[index] = view;
        } else {
            table.Erase(index);
            model.erase(index);
        }
        const auto found = model.find(index);
        ASSERT_EQ(table.Find(index), found == model.end() ? nullptr : found->second);
    }
    for (const auto& [index, view] : model) ASSERT_EQ(table.Find(index), view);
    size_t count = 0;
    table.ForEach([&](OdDbObject*) { ++count; });
    EXPECT_EQ(count, model.size());
}

}  // namespace
