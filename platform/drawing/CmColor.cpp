// The colours behind the numbers: nine basic ones, a wheel of 24 hues with ten shades each, greys.
#include "platform/drawing/CmColor.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr std::array<uint32_t, 10> kBasic = {kWhite,   0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                             0x0000FF, 0xFF00FF, kWhite,   0x808080, 0xC0C0C0};
constexpr std::array<uint32_t, 6> kGreys = {0x000000, 0x656565, 0x666666,
                                            0x999999, 0xCCCCCC, 0xFFFFFF};
// Of the shades, in pairs, in quarters of a unit: 100, 65, 50, 30 and 15 % of 255.
constexpr std::array<int, 5> kBrightness = {1020, 663, 510, 306, 153};

constexpr int kFirstHue = 10, kFirstGrey = 250, kHueStep = 15;

// The share of one channel in a hue, in degrees of the wheel from the channel's own place: full up
// to 60, none from 120 on, in quarters between.
int Channel(int hue, int place, int brightness, bool pale) {
    const int distance = std::abs((hue - place + 180 + 360) % 360 - 180);
    const int quarters = std::clamp((120 - distance) / kHueStep, 0, 4);
    return pale ? brightness * (4 + quarters) / 32 : brightness * quarters / 16;
}

// Odd numbers are the pale twins of the even ones before them.
uint32_t OfWheel(int index) {
    const int hue = (index / 10 - 1) * kHueStep;
    const int brightness = kBrightness[index % 10 / 2];
    uint32_t color = 0;
    for (const int place : {0, 120, 240})
        color = color << 8 | uint32_t(Channel(hue, place, brightness, index % 2));
    return color;
}

}  // namespace

void OdCmColor::setColorIndex(uint16_t index) {
    if (index < kFirstHue)
        rgb = kBasic[index];
    else if (index < kFirstGrey)
        rgb = OfWheel(index);
    else
        rgb = index < kByLayer ? kGreys[index - kFirstGrey] : kWhite;
}
