// The spellings of layer names that records use, each kept once.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Record.h"

namespace dxf {

class LayerNames {
  public:
    // The number of a spelling, given in order of first use. Neighbours mostly share their layer,
    // so the last one is tried first.
    uint32_t Intern(std::string_view raw) {
        if (last < spans.size() && Name(last) == raw) return last;
        return last = Look(raw);
    }
    std::string_view Name(uint32_t layer) const {
        return std::string_view(bytes).substr(spans[layer].offset, spans[layer].length);
    }
    uint32_t Count() const { return uint32_t(spans.size()); }

  private:
    struct Span {
        size_t offset;
        uint32_t length;
        uint32_t hash;
    };
    uint32_t Look(std::string_view raw);
    void Grow();

    std::string bytes;
    std::vector<Span> spans;
    std::vector<uint32_t> slots;  // open addressing; kNoLayer is free
    uint32_t last = 0;
};

}  // namespace dxf
