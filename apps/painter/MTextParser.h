// The format codes of multi-line texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/painter/Fonts.h"
#include "apps/painter/Shape.h"

namespace painter {

struct TextFormat {
    uint16_t font = 0;
    double height = 1;   // of the capitals, in drawing units
    double width = 1;    // factor
    double oblique = 0;  // degrees
    double tracking = 1;
    Colour colour = kByLayer;
    bool ownColour = false;  // false: that of the entity
    bool under = false, over = false, through = false;
    int vertical = 0;  // within a line of several heights: 0 on the baseline, 1 middle, 2 top

    friend bool operator==(const TextFormat&, const TextFormat&) = default;
};

struct TextPiece {
    enum class Kind { Word, Space, Tab, Stack };
    Kind kind = Kind::Word;
    TextFormat format;
    std::u16string characters;  // of a stack: the upper ones
    std::u16string lower;
    char16_t divider = 0;  // of a stack: '/' with a line, '#' slanted, '^' without a line
};

struct TextParagraph {
    enum class Alignment { OfText, Left, Centre, Right };
    Alignment alignment = Alignment::OfText;
    double firstIndent = 0, indent = 0, rightIndent = 0;  // in drawing units
    bool newColumn = false;                               // begins one
    std::vector<TextPiece> pieces;
};

// Unknown codes are passed over; what is cut off ends there.
std::vector<TextParagraph> ParseMText(std::u16string_view text, const TextFormat& format,
                                      Fonts& fonts);

}  // namespace painter
