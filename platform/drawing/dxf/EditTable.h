// The edits of a drawing by record.
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <mutex>
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

// For what is short, or done once, and what two threads seldom do at the same time: neither ever
// sleeps.
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

// An array of record numbers leads to the edits, so that a look-up is a few reads, and a walk in
// the order of the records needs no sorting. Two threads may edit records of the file at the same
// time, as long as each looks only for edits that it has made: neighbouring records share a stripe,
// and only of the same stripe does one thread wait for the other.
class EditTable {
  public:
    // How many records the file has. Once the first of them is edited, an edit of another one moves
    // nothing that is being looked at.
    void Expect(size_t records) { expected = records; }

    Edit* Find(RecordIndex number) {
        const uint32_t place = number < size ? places[number] : 0;
        return place ? &stripes[number / kStripe]->At(place) : nullptr;
    }
    const Edit* Find(RecordIndex number) const {
        return const_cast<EditTable&>(*this).Find(number);
    }

    // Made when there is none; stays in its place.
    Edit& Of(RecordIndex number) {
        if (number >= size) MakeRoomFor(number);
        Stripe& stripe = *stripes[number / kStripe];
        const std::lock_guard lock(stripe.growing);
        if (!places[number]) places[number] = stripe.Append();
        return stripe.At(places[number]);
    }

    // Calls visit(number, edit) in the order of the records.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (RecordIndex number = 0; number < places.size(); ++number)
            if (const uint32_t place = places[number])
                visit(number, stripes[number / kStripe]->At(place));
    }

  private:
    static constexpr size_t kStripe = 8192;

    // Not side by side in memory: two threads would slow each other down.
    struct alignas(64) Stripe {
        static constexpr uint32_t kPiece = 64;
        using Piece = std::array<Edit, kPiece>;

        Edit& At(uint32_t place) { return (*pieces[(place - 1) / kPiece])[(place - 1) % kPiece]; }
        uint32_t Append() {
            if (pieces.empty()) pieces.reserve(kStripe / kPiece);
            if (count % kPiece == 0) pieces.push_back(std::make_unique<Piece>());
            return ++count;
        }

        SpinLock growing;
        uint32_t count = 0;
        std::vector<std::unique_ptr<Piece>> pieces;  // growing moves no edit
    };

    void MakeRoomFor(RecordIndex number) {
        const std::lock_guard lock(sizing);
        if (number < size) return;
        places.resize(std::max<size_t>(expected, number + 1));
        while (stripes.size() * kStripe < places.size()) {
            stripes.push_back(std::make_unique<Stripe>());
        }
        size = places.size();
    }

    std::vector<uint32_t> places;  // of the edit of each record in its stripe, from 1 on
    std::vector<std::unique_ptr<Stripe>> stripes;
    std::atomic<size_t> size = 0;  // of the places, once they are there
    SpinLock sizing;
    size_t expected = 0;
};

}  // namespace dxf
