// Stepping aside of texts in blocks.
#include "apps/cli/StandIns.h"

#include <algorithm>

#include "apps/cli/ReadBack.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;

bool HasBlockTexts(const structExpressao& line) {
    return std::any_of(line.objetos.begin(), line.objetos.end(),
                       [](const ETraduzivel* object) { return IsBlockText(*object); });
}

}  // namespace

StandIns::StandIns(const traducaoTQ::ITabelaExpressoes::ListaExpressoes& translatedLines) {
    std::unordered_set<std::u16string_view> translations;
    for (const auto& line : translatedLines) {
        if (line->traducao != line->original && HasBlockTexts(*line)) {
            translations.insert(line->traducao);
        }
    }
    std::unordered_set<std::u16string_view> keys;  // references of one block show the same text
    for (const auto& line : translatedLines) {
        if (!translations.contains(line->original)) continue;
        for (ETraduzivel* object : line->objetos) {
            if (IsBlockText(*object) && keys.insert(object->GetChave()).second) MoveAside(*object);
        }
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
