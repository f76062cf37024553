// Putting parts of a display list together: they share colours, dashes and fonts then.
#include "apps/painter/ListParts.h"

#include <algorithm>
#include <map>

namespace painter {

namespace {

constexpr size_t kMostNumbers = 0x10000;  // of colours and of dash patterns

// The numbers in `whole` of the values of `part`; those that are new are added. Beyond the number
// that an item can name, they get the first one.
template <class Value>
std::vector<uint16_t> NumbersIn(std::vector<Value>& whole, const std::vector<Value>& part) {
    std::map<Value, size_t> known;
    for (size_t i = 0; i < whole.size(); ++i) known.try_emplace(whole[i], i);
    std::vector<uint16_t> numbers;
    for (const Value& value : part) {
        const auto [place, added] = known.try_emplace(value, whole.size());
        if (added && whole.size() < kMostNumbers) whole.push_back(value);
        numbers.push_back(static_cast<uint16_t>(place->second < kMostNumbers ? place->second : 0));
    }
    return numbers;
}

bool AreTheSame(const std::vector<uint16_t>& numbers) {
    for (size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] != i) return false;
    }
    return true;
}

}  // namespace

size_t DisplayList::ItemCount() const {
    size_t count = 0;
    for (const ListPart& part : parts) count += part.items.size();
    return count;
}

void AddItem(ListPart& part, const Item& item) {
    if (part.items.size() % ListPart::kRun == 0) part.runs.emplace_back();
    part.runs.back().Add(item.bounds);
    part.items.push_back(item);
}

void Append(DisplayList& list, BuiltPart&& built, const std::vector<uint16_t>& fontNumbers) {
    const std::vector<uint16_t> colours = NumbersIn(list.colours, built.colours);
    const std::vector<uint16_t> dashes = NumbersIn(list.dashes, built.dashes);
    ListPart& part = list.parts.emplace_back(std::move(built.part));
    if (!AreTheSame(colours) || !AreTheSame(dashes)) {
        for (Item& item : part.items) {
            item.colour = colours[item.colour];
            item.dash = dashes[item.dash];
        }
    }
    if (!AreTheSame(fontNumbers)) {
        for (TextItem& text : part.texts) text.font = fontNumbers[text.font];
    }
    list.extents.Add(built.extents);
    list.cut = built.cut;
}

}  // namespace painter
