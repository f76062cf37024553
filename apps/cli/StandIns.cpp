// Stepping aside of texts in blocks.
#include "apps/cli/StandIns.h"

#include "apps/cli/ReadBack.h"

namespace cli {

using traducaoTQ::ETraduzivel;

StandIns::StandIns(const Lines& lines, std::span<const Place> places) {
    std::vector<const Place*> inBlocks;
    std::unordered_set<std::u16string_view> translations;
    for (size_t i = 0; i < places.size(); ++i) {
        FetchObjectAhead(places, i);
        const Place& place = places[i];
        if (!IsBlockText(*place.object)) continue;
        inBlocks.push_back(&place);
        const structExpressao& line = *lines[place.line];
        if (line.traducao != line.original) translations.insert(line.traducao);
    }
    for (const Place* place : inBlocks) {
        if (translations.contains(lines[place->line]->original)) MoveAside(*place->object);
    }
}

void StandIns::MoveAside(ETraduzivel& object) {
    constexpr char16_t kPrivateUse = u'\uE000';
    std::u16string name(1, kPrivateUse);
    for (const char digit : std::to_string(moved.size())) name += static_cast<char16_t>(digit);
    object.SetTexto(name);
    moved.insert(&object);
}

void StandIns::PutBack(ETraduzivel& object, const structExpressao& line) const {
    if (moved.contains(&object)) object.SetTexto(line.original);
}

}  // namespace cli
