// What an edit puts in the place of bytes of the file.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace dxf {

// Stands for `removed` bytes of a record of the file from `at` on, or for all bytes of the record.
// Nothing at all: the record is as in the file. Copies share the bytes.
class Overlay {
  public:
    Overlay() = default;
    explicit Overlay(std::string_view wholeRecord) : whole(true) { Take(wholeRecord); }
    Overlay(uint32_t at, uint32_t removed, std::string_view inserted) : at(at), removed(removed) {
        Take(inserted);
    }

    explicit operator bool() const { return bytes != nullptr; }
    bool IsWhole() const { return whole; }
    uint32_t At() const { return at; }
    uint32_t Removed() const { return removed; }
    std::string_view Inserted() const { return {bytes.get(), size}; }
    bool SharesWith(const Overlay& other) const { return bytes == other.bytes; }

  private:
    void Take(std::string_view taken) {
        auto copy = std::make_shared_for_overwrite<char[]>(taken.size());
        std::memcpy(copy.get(), taken.data(), taken.size());
        bytes = std::move(copy);
        size = static_cast<uint32_t>(taken.size());
    }

    std::shared_ptr<const char[]> bytes;
    uint32_t size = 0, at = 0, removed = 0;
    bool whole = false;
};

}  // namespace dxf
