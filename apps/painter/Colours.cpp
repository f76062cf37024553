// The colours by number.
#include "apps/painter/Colours.h"

#include <array>

namespace painter {

namespace {

constexpr Colour Rgb(int red, int green, int blue) {
    return 0xFF000000u | static_cast<Colour>(red << 16 | green << 8 | blue);
}

// Part of a full colour at the 24 hues, for the channel that peaks at hue 0: it falls in four steps
// to nothing, stays there, and rises again.
constexpr int Channel(int hue) {
    hue = (hue % 24 + 24) % 24;
    if (hue > 12) hue = 24 - hue;
    constexpr int kSteps[] = {255, 191, 127, 63, 0};
    return hue <= 4 ? 255 : hue <= 8 ? kSteps[hue - 4] : 0;
}

// Ten shades of each hue: five degrees of brightness, the odd ones half way to white.
constexpr Colour Shade(int index) {
    constexpr int kBrightness[] = {255, 165, 127, 76, 38};
    const int hue = (index - 10) / 10;
    const int brightness = kBrightness[index % 10 / 2];
    int channels[3] = {Channel(hue), Channel(hue - 8), Channel(hue - 16)};
    for (int& channel : channels) {
        if (index % 2) channel = (channel + 255) / 2;
        channel = channel * brightness / 255;
    }
    return Rgb(channels[0], channels[1], channels[2]);
}

constexpr std::array<Colour, 256> MakeTable() {
    std::array<Colour, 256> table{
        kByBlock,       Rgb(255, 0, 0),   Rgb(255, 255, 0), Rgb(0, 255, 0),     Rgb(0, 255, 255),
        Rgb(0, 0, 255), Rgb(255, 0, 255), kForeground,      Rgb(128, 128, 128), Rgb(192, 192, 192)};
    for (int index = 10; index < 250; ++index) table[static_cast<size_t>(index)] = Shade(index);
    constexpr int kGreys[] = {51, 91, 132, 173, 214, 255};
    for (size_t i = 0; i < 6; ++i) table[250 + i] = Rgb(kGreys[i], kGreys[i], kGreys[i]);
    return table;
}

constexpr auto kTable = MakeTable();

}  // namespace

Colour ColourOfIndex(int index) {
    return index >= 0 && index < 256 ? kTable[static_cast<size_t>(index)] : kByLayer;
}

Colour ColourOfRgb(int rgb) { return 0xFF000000u | (static_cast<Colour>(rgb) & 0xFFFFFFu); }

Colour ColourOf(const Tags& tags, Colour otherwise) {
    if (const dxf::Group* rgb = tags.Find(420)) return ColourOfRgb(IntOf(*rgb));
    if (const dxf::Group* index = tags.Find(62)) return ColourOfIndex(std::abs(IntOf(*index)));
    return otherwise;
}

}  // namespace painter
