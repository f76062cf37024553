// What an edit puts in the place of bytes of the file.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/drawing/dxf/SharedBytes.h"

namespace dxf {

// Stands for `removed` bytes of a record of the file from `at` on, or for all bytes of the record.
// Nothing at all: the record is as in the file. Copies share the bytes.
class Overlay {
  public:
    Overlay() = default;
    explicit Overlay(std::string_view wholeRecord) : bytes(wholeRecord), removed(kWhole) {}
    Overlay(uint32_t at, uint32_t removed, std::string_view inserted)
        : bytes(inserted), at(at), removed(removed) {}

    explicit operator bool() const { return bool(bytes); }
    bool IsWhole() const { return removed == kWhole; }
    uint32_t At() const { return at; }
    uint32_t Removed() const { return removed; }
    std::string_view Inserted() const { return bytes.View(); }
    bool SharesWith(const Overlay& other) const { return bytes == other.bytes; }

  private:
    static constexpr uint32_t kWhole = 0xFFFFFFFF;

    SharedBytes bytes;
    uint32_t at = 0, removed = 0;
};

}  // namespace dxf
