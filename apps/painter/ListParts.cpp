// Putting parts of a display list together: what items count from the beginning of their part
// counts from the beginning of the whole then.
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

template <class Sequence>
void AppendAll(Sequence& whole, const Sequence& part) {
    whole.insert(whole.end(), part.begin(), part.end());
}

}  // namespace

void AddItem(DisplayList& list, const Item& item) {
    if (list.items.size() % DisplayList::kRun == 0) list.runs.emplace_back();
    list.runs.back().Add(item.bounds);
    list.items.push_back(item);
}

void Append(DisplayList& list, DisplayList&& part, const std::vector<uint16_t>& fontNumbers) {
    const auto points = static_cast<uint32_t>(list.points.size());
    const auto verbs = static_cast<uint32_t>(list.verbs.size());
    const auto texts = static_cast<uint32_t>(list.texts.size());
    const auto characters = static_cast<uint32_t>(list.characters.size());
    const std::vector<uint16_t> colours = NumbersIn(list.colours, part.colours);
    const std::vector<uint16_t> dashes = NumbersIn(list.dashes, part.dashes);
    list.items.reserve(list.items.size() + part.items.size());
    for (Item& item : part.items) {
        item.first += item.kind == ItemKind::Text ? texts : points;
        item.verb += verbs;
        item.colour = colours[item.colour];
        item.dash = dashes[item.dash];
        AddItem(list, item);
    }
    for (TextItem& text : part.texts) {
        text.first += characters;
        text.font = fontNumbers[text.font];
    }
    AppendAll(list.points, part.points);
    AppendAll(list.verbs, part.verbs);
    AppendAll(list.texts, part.texts);
    list.characters += part.characters;
    list.extents.Add(part.extents);
    list.cut = part.cut;
}

}  // namespace painter
