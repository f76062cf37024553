// Colours by number and as a whole.
#include <gtest/gtest.h>

#include "platform/drawing/CmColor.h"

namespace {

TEST(Colors, ByNumberAndAsAWhole) {
    const struct {
        int index;
        uint32_t rgb;
    } cases[] = {{0, 0xFFFFFF},   {1, 0xFF0000},   {5, 0x0000FF},   {8, 0x808080},
                 {10, 0xFF0000},  {11, 0xFF7F7F},  {30, 0xFF7F00},  {94, 0x007F00},
                 {174, 0x00007F}, {249, 0x261317}, {250, 0x000000}, {255, 0xFFFFFF},
                 {256, 0xFFFFFF}, {300, 0xFFFFFF}};
    OdCmColor color(200);
    const auto shown = [&] {
        return uint32_t(color.red()) << 16 | uint32_t(color.green()) << 8 | color.blue();
    };
    for (const auto& one : cases) {
        color.setColorIndex(static_cast<uint16_t>(one.index));
        EXPECT_EQ(shown(), one.rgb) << one.index;
    }
    color.setColor(257);
    EXPECT_EQ(shown(), 257u);
    color.setColor(0xC2102030);
    EXPECT_EQ(shown(), 0x102030u);
    EXPECT_EQ(color.colorMethod(), 200);
}

}  // namespace
