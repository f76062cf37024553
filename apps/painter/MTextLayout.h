// Multi-line texts broken into lines, and where each stretch stands.
#pragma once

#include <vector>

#include "apps/painter/MTextParser.h"
#include "apps/painter/TextCodes.h"

namespace painter {

struct ColumnLayout {
    double width = 0, gutter = 0;
    std::vector<double> heights;  // of the columns; the last one holds for all that follow
};

struct MTextBox {
    double width = 0;        // that lines are wrapped to; 0: not wrapped
    int attachment = 1;      // 1 to 9: left, centre, right in rows top, middle, bottom
    double lineSpacing = 1;  // factor
    bool exactSpacing = false;
    double height = 1;     // of the capitals
    ColumnLayout columns;  // without heights: one column
};

// In drawing units from the point of attachment, x along the lines.
struct PlacedText {
    double x, y;  // of the baseline's begin
    double advance;
    TextFormat format;
    std::u16string characters;
};
struct PlacedRule {
    double fromX, fromY, toX, toY;
    TextFormat format;
};
struct MTextLayout {
    std::vector<PlacedText> texts;
    std::vector<PlacedRule> rules;
    double left = 0, bottom = 0, right = 0, top = 0;  // of the box
};

MTextLayout LayOut(const std::vector<TextParagraph>& paragraphs, const MTextBox& box,
                   const Fonts& fonts);

}  // namespace painter
