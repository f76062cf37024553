// The views that somebody holds: open addressing with linear probing.
#include "platform/drawing/ViewTable.h"

#include <utility>

size_t ViewTable::PlaceOf(uint32_t index) const {
    size_t place = Home(index);
    while (slots[place].taken && slots[place].index != index)
        place = (place + 1) & (slots.size() - 1);
    return place;
}

OdDbObject*& ViewTable::operator[](uint32_t index) {
    if ((count + 1) * 2 > slots.size()) Grow();
    Slot& slot = slots[PlaceOf(index)];
    if (!slot.taken) {
        slot = {nullptr, index, true};
        ++count;
    }
    return slot.view;
}

// What stands behind moves up where the gap would part it from its home.
void ViewTable::Erase(uint32_t index) {
    const size_t last = slots.size() - 1;
    size_t gap = PlaceOf(index);
    if (!slots[gap].taken) return;
    for (size_t next = (gap + 1) & last; slots[next].taken; next = (next + 1) & last) {
        const size_t fromHome = (next - Home(slots[next].index)) & last;
        if (fromHome < ((next - gap) & last)) continue;
        slots[gap] = slots[next];
        gap = next;
    }
    slots[gap] = Slot();
    --count;
}

void ViewTable::Grow() {
    const std::vector<Slot> old = std::exchange(slots, std::vector<Slot>(slots.size() * 2));
    for (const Slot& slot : old)
        if (slot.taken) slots[PlaceOf(slot.index)] = slot;
}
