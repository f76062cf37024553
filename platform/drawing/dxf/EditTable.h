// The edits of a drawing by record.
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "platform/drawing/dxf/Overlay.h"
#include "platform/drawing/dxf/Record.h"

namespace dxf {

// A text that is made when it is first asked for, also when several threads read at the same time.
class LateText {
  public:
    LateText() = default;
    LateText(const LateText&) = delete;
    LateText& operator=(const LateText&) = delete;
    ~LateText() { Reset(); }

    template <class Make>
    const std::string& Get(const Make& make) const {
        if (const std::string* known = text.load(std::memory_order_acquire)) return *known;
        auto made = std::make_unique<const std::string>(make());
        const std::string* first = nullptr;
        return text.compare_exchange_strong(first, made.get()) ? *made.release() : *first;
    }
    void Reset() { delete text.exchange(nullptr); }

  private:
    mutable std::atomic<const std::string*> text = nullptr;  // owned
};

// For a few instructions that two threads seldom do at the same time: neither ever sleeps.
class SpinLock {
  public:
    void lock() {
        while (taken.test_and_set(std::memory_order_acquire)) {
        }
    }
    void unlock() { taken.clear(std::memory_order_release); }

  private:
    std::atomic_flag taken;
};

// What differs from the file in one record.
struct Edit {
    Overlay overlay;
    LateText patched;  // the record under a patch
    // What the record was at the last save. Kept by the first change after that save, which notes
    // how many saves there had been.
    std::unique_ptr<const Overlay> savedOverlay;  // null: as in the file
    uint32_t saves = 0;
    uint16_t changes = 0;  // wraps
    bool savedErased = false;
};

// An array of record numbers leads to the edits, so that a look-up is two reads, and a walk in the
// order of the records needs no sorting.
class EditTable {
  public:
    // How many records the file has. Once the first of them is edited, an edit of another one moves
    // nothing that is being looked at.
    void Expect(size_t records) { expected = records; }

    Edit* Find(RecordIndex number) {
        const uint32_t place = number < places.size() ? places[number] : 0;
        return place ? &At(place) : nullptr;
    }
    const Edit* Find(RecordIndex number) const {
        return const_cast<EditTable&>(*this).Find(number);
    }

    // Made when there is none; stays in its place.
    Edit& Of(RecordIndex number) {
        if (Edit* edit = Find(number)) return *edit;
        if (number >= places.size()) {
            places.resize(std::max<size_t>(expected, number + 1));
            pieces.reserve(expected / kPiece + 1);
        }
        if (count % kPiece == 0) pieces.push_back(std::make_unique<Piece>());
        places[number] = ++count;
        return At(count);
    }

    // Calls visit(number, edit) in the order of the records.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (RecordIndex number = 0; number < places.size(); ++number)
            if (places[number]) visit(number, At(places[number]));
    }

  private:
    static constexpr uint32_t kPiece = 512;
    using Piece = std::array<Edit, kPiece>;

    Edit& At(uint32_t place) const { return (*pieces[(place - 1) / kPiece])[(place - 1) % kPiece]; }

    std::vector<uint32_t> places;                // of the edit of each record, from 1 on
    std::vector<std::unique_ptr<Piece>> pieces;  // growing moves no edit
    uint32_t count = 0;
    size_t expected = 0;
};

}  // namespace dxf
