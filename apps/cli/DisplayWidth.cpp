// The width of texts on a terminal, the same in every locale.
#include <QString>
#include <algorithm>
#include <array>

#include "apps/cli/Output.h"

namespace cli {

namespace {

struct Range {
    char32_t first, last;
};

// Characters that take two columns, ascending.
constexpr std::array kWide = {
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF},
    Range{0x3400, 0x4DBF},   Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},
    Range{0xA960, 0xA97F},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD},
};

bool IsWide(char32_t c) {
    const auto range =
        std::find_if(kWide.begin(), kWide.end(), [c](const Range& wide) { return c <= wide.last; });
    return range != kWide.end() && c >= range->first;
}

bool TakesNoColumn(char32_t c) {
    switch (QChar::category(c)) {
        case QChar::Mark_NonSpacing:
        case QChar::Mark_Enclosing:
        case QChar::Other_Format:
        case QChar::Other_Control:
            return true;
        default:
            return false;
    }
}

}  // namespace

int DisplayWidth(std::string_view utf8) {
    const bool ascii =
        std::all_of(utf8.begin(), utf8.end(), [](char c) { return c >= ' ' && c < 127; });
    if (ascii) return static_cast<int>(utf8.size());
    int width = 0;
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (const uint c : text.toUcs4()) {
        if (!TakesNoColumn(c)) width += IsWide(c) ? 2 : 1;
    }
    return width;
}

}  // namespace cli
