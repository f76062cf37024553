// Packing texts: where each ends, then all of them.
#include "platform/window/PackedTexts.h"

namespace window {

std::vector<std::u16string_view> PackedTexts::All() const {
    std::vector<std::u16string_view> texts(count);
    for (size_t i = 0; i < count; ++i) texts[i] = At(i);
    return texts;
}

void PackedTexts::Assign(const std::vector<std::u16string_view>& texts) {
    size_t length = 0;
    std::u16string packed(HeadOf(texts.size()), u'\0');
    for (size_t i = 0; i < texts.size(); ++i) {
        length += texts[i].size();
        packed[2 * i] = static_cast<char16_t>(length);
        packed[2 * i + 1] = static_cast<char16_t>(length >> 16);
    }
    packed.reserve(packed.size() + length);
    for (const auto text : texts) packed += text;
    block = std::move(packed);
    count = static_cast<uint32_t>(texts.size());
}

void PackedTexts::Set(size_t number, std::u16string_view text) {
    auto texts = All();
    if (number >= texts.size()) texts.resize(number + 1);
    texts[number] = text;
    Assign(texts);
}

void PackedTexts::Insert(size_t number) {
    auto texts = All();
    if (number >= texts.size()) return;
    texts.insert(texts.begin() + static_cast<std::ptrdiff_t>(number), std::u16string_view());
    Assign(texts);
}

void PackedTexts::Erase(size_t number) {
    auto texts = All();
    if (number >= texts.size()) return;
    texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(number));
    Assign(texts);
}

}  // namespace window
