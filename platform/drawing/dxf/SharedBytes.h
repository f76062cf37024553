// Bytes that all copies share.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace dxf {

// They are counted and measured in front of themselves: a drawing may have hundreds of thousands of
// short texts that were changed, for which a std::shared_ptr takes as much again as the text.
class SharedBytes {
  public:
    SharedBytes() = default;
    explicit SharedBytes(std::string_view bytes)
        : head(new (::operator new(sizeof(Head) + bytes.size())) Head(uint32_t(bytes.size()))) {
        std::memcpy(head->Bytes(), bytes.data(), bytes.size());
    }
    SharedBytes(const SharedBytes& other) : head(other.head) {
        if (head) head->owners.fetch_add(1, std::memory_order_relaxed);
    }
    SharedBytes(SharedBytes&& other) noexcept : head(std::exchange(other.head, nullptr)) {}
    SharedBytes& operator=(SharedBytes other) noexcept {
        std::swap(head, other.head);
        return *this;
    }
    ~SharedBytes() {
        if (head && head->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
            ::operator delete(head);
    }

    explicit operator bool() const { return head != nullptr; }
    bool operator==(const SharedBytes&) const = default;  // the same bytes, not equal ones
    std::string_view View() const {
        return head ? std::string_view(head->Bytes(), head->size) : std::string_view();
    }

  private:
    struct Head {
        explicit Head(uint32_t size) : size(size) {}
        char* Bytes() { return reinterpret_cast<char*>(this + 1); }

        std::atomic<uint32_t> owners = 1;
        const uint32_t size;  // of what stands behind
    };

    Head* head = nullptr;
};

}  // namespace dxf
