// The spellings of layer names that records use, each kept once.
#include "platform/drawing/dxf/LayerNames.h"

#include <algorithm>
#include <functional>

namespace dxf {

uint32_t LayerNames::Look(std::string_view raw) {
    if (spans.size() * 2 >= slots.size()) Grow();
    const uint32_t hash = uint32_t(std::hash<std::string_view>()(raw));
    size_t slot = hash & (slots.size() - 1);
    for (; slots[slot] != kNoLayer; slot = (slot + 1) & (slots.size() - 1))
        if (spans[slots[slot]].hash == hash && Name(slots[slot]) == raw) return slots[slot];
    slots[slot] = uint32_t(spans.size());
    spans.push_back({bytes.size(), uint32_t(raw.size()), hash});
    bytes += raw;
    return slots[slot];
}

void LayerNames::Grow() {
    slots.assign(std::max<size_t>(64, slots.size() * 2), kNoLayer);
    for (uint32_t layer = 0; layer < spans.size(); ++layer) {
        size_t slot = spans[layer].hash & (slots.size() - 1);
        while (slots[slot] != kNoLayer) slot = (slot + 1) & (slots.size() - 1);
        slots[slot] = layer;
    }
}

}  // namespace dxf
