// The %% codes of texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace painter {

enum class Rule : uint8_t { Under, Over, Through };

// A line along characters begin to end.
struct RuledPart {
    Rule rule;
    size_t begin, end;
};

struct CodedText {
    std::u16string characters;
    std::vector<RuledPart> rules;
};

// %%d %%p %%c are signs, %%nnn a character by number, %%u %%o %%k switch lines on and off, %%% is a
// percent sign; anything else stays. Control characters become blanks.
CodedText DecodeText(std::u16string text);

// The sign of a code at the front of the text, which begins with %%: its length, or 0 for a code
// that is no sign.
size_t SignOf(std::u16string_view text, char16_t& sign);

}  // namespace painter
