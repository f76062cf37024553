// The views that somebody holds, by object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class OdDbObject;

// Open addressing: views come and go by the hundred thousand, and mostly a handful is there at a
// time, so that none of them should cost a piece of memory or a division.
class ViewTable {
  public:
    OdDbObject* Find(uint32_t index) const { return slots[PlaceOf(index)].view; }  // null for none
    OdDbObject*& operator[](uint32_t index);  // to be set; valid until the next call
    void Erase(uint32_t index);

    template <class Visit>
    void ForEach(Visit visit) const {
        for (const Slot& slot : slots)
            if (slot.taken) visit(slot.view);
    }

  private:
    struct Slot {
        OdDbObject* view = nullptr;
        uint32_t index = 0;
        bool taken = false;
    };
    size_t Home(uint32_t index) const { return index * 0x9E3779B1u & (slots.size() - 1); }
    size_t PlaceOf(uint32_t index) const;  // of the object, or the free one where it belongs
    void Grow();

    std::vector<Slot> slots = std::vector<Slot>(64);  // a power of two, at most half of them taken
    size_t count = 0;
};
