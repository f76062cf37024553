// Breaking multi-line texts into lines and placing them.
#include "apps/painter/MTextLayout.h"

#include <algorithm>

namespace painter {

namespace {

constexpr double kBaselineDistance = 5.0 / 3.0;  // in heights, at a spacing factor of 1
constexpr double kTabStops = 4;                  // distance in heights

struct Item {
    const TextPiece* piece;
    double x, width;
};

struct Line {
    std::vector<Item> items;
    double width = 0;   // without blanks at the end
    double height = 0;  // of the highest capitals
    double left = 0;    // indent
    bool newColumn = false;
    TextParagraph::Alignment alignment = TextParagraph::Alignment::OfText;
    double x = 0, y = 0;
};

double EmOf(const TextFormat& format, const Fonts& fonts) {
    return format.height / fonts.At(format.font).CapHeight();
}

double WidthOf(std::u16string_view characters, const TextFormat& format, const Fonts& fonts) {
    return fonts.At(format.font).Width(characters, format.tracking) * EmOf(format, fonts) *
           format.width;
}

bool IsBlank(const TextPiece& piece) {
    return piece.kind == TextPiece::Kind::Space || piece.kind == TextPiece::Kind::Tab;
}

// Breaks the pieces of a paragraph into lines.
class Breaker {
  public:
    Breaker(const TextParagraph& paragraph, const MTextBox& box, double limit, const Fonts& fonts)
        : paragraph(paragraph), box(box), limit(limit), fonts(fonts) {
        Begin(paragraph.indent + paragraph.firstIndent);
        lines.back().newColumn = paragraph.newColumn;
    }

    std::vector<Line> Break() {
        const auto& pieces = paragraph.pieces;
        for (size_t i = 0; i < pieces.size();) {
            size_t end = i;
            if (IsBlank(pieces[i])) {
                AddBlank(pieces[i]);
                ++end;
            } else {
                while (end < pieces.size() && !IsBlank(pieces[end])) ++end;
                AddWord(i, end);
            }
            i = end;
        }
        if (lines.back().height == 0) {
            lines.back().height = pieces.empty() ? box.height : pieces.back().format.height;
        }
        return std::move(lines);
    }

  private:
    void Begin(double left) {
        Line line;
        line.left = left * box.height;
        line.alignment = paragraph.alignment;
        lines.push_back(std::move(line));
        x = 0;
    }

    double PieceWidth(const TextPiece& piece) const {
        if (piece.kind != TextPiece::Kind::Stack) {
            return WidthOf(piece.characters, piece.format, fonts);
        }
        const TextFormat& format = piece.format;
        const double upper = WidthOf(piece.characters, format, fonts);
        const double lower = WidthOf(piece.lower, format, fonts);
        return piece.divider == u'#' ? upper + lower + format.height * 0.5 : std::max(upper, lower);
    }

    void AddBlank(const TextPiece& piece) {
        Line& line = lines.back();
        double width = PieceWidth(piece);
        if (piece.kind == TextPiece::Kind::Tab) {
            const double stop = kTabStops * box.height;
            const double place = line.left + x;
            width = (std::floor(place / stop) + 1) * stop - place;
        }
        line.items.push_back({&piece, x, width});
        x += width;
    }

    // Pieces without a blank between them stay together.
    void AddWord(size_t begin, size_t end) {
        double width = 0;
        for (size_t i = begin; i < end; ++i) width += PieceWidth(paragraph.pieces[i]);
        const double room = limit - lines.back().left - paragraph.rightIndent * box.height;
        constexpr double kTolerance = 1e-6;
        if (limit > 0 && lines.back().width > 0 && x + width > room * (1 + kTolerance)) {
            Begin(paragraph.indent);
        }
        Line& line = lines.back();
        for (size_t i = begin; i < end; ++i) {
            const TextPiece& piece = paragraph.pieces[i];
            line.items.push_back({&piece, x, PieceWidth(piece)});
            x += line.items.back().width;
            line.height = std::max(line.height, piece.format.height);
        }
        line.width = x;
    }

    const TextParagraph& paragraph;
    const MTextBox& box;
    double limit;
    const Fonts& fonts;
    std::vector<Line> lines;
    double x = 0;
};

class Layouter {
  public:
    Layouter(const MTextBox& box, const Fonts& fonts) : box(box), fonts(fonts) {}

    MTextLayout LayOut(const std::vector<TextParagraph>& paragraphs) {
        const bool columns = !box.columns.heights.empty();
        const double limit = columns ? box.columns.width : box.width;
        for (const TextParagraph& paragraph : paragraphs) {
            auto broken = Breaker(paragraph, box, limit, fonts).Break();
            std::move(broken.begin(), broken.end(), std::back_inserter(lines));
        }
        for (const Line& line : lines) widest = std::max(widest, line.left + line.width);
        if (limit > 0) widest = limit;
        Stack(columns);
        Attach();
        for (const Line& line : lines) Emit(line);
        return std::move(layout);
    }

  private:
    // Baselines from the top of the box on, column by column.
    void Stack(bool columns) {
        double y = 0, lowest = 0;
        size_t column = 0;
        bool first = true;
        for (Line& line : lines) {
            const double height = box.exactSpacing ? box.height : line.height;
            double next = first ? -line.height : y - height * kBaselineDistance * box.lineSpacing;
            const bool full = columns && !first && -next > ColumnHeight(column) * (1 + 1e-6);
            if (!first && columns && (line.newColumn || full)) {
                ++column;
                next = -line.height;
            }
            first = false;
            line.y = y = next;
            line.x = static_cast<double>(column) * (box.columns.width + box.columns.gutter);
            lowest = std::min(lowest, y);
        }
        layout.bottom = lowest;
        layout.right = widest + static_cast<double>(column) * (widest + box.columns.gutter);
    }

    double ColumnHeight(size_t column) const {
        const auto& heights = box.columns.heights;
        return heights[std::min(column, heights.size() - 1)];
    }

    void Attach() {
        const int across = (box.attachment - 1) % 3, down = (box.attachment - 1) / 3;
        const double moveX = -layout.right * across / 2, moveY = -layout.bottom * down / 2;
        for (Line& line : lines) {
            line.x += moveX + line.left + Slack(line, across);
            line.y += moveY;
        }
        layout.left += moveX;
        layout.right += moveX;
        layout.top += moveY;
        layout.bottom += moveY;
    }

    // What an alignment to the centre or right leaves free before the line.
    double Slack(const Line& line, int across) const {
        using Alignment = TextParagraph::Alignment;
        if (line.alignment == Alignment::Left) return 0;
        if (line.alignment == Alignment::Centre) across = 1;
        if (line.alignment == Alignment::Right) across = 2;
        return (widest - line.left - line.width) * across / 2;
    }

    // Words and blanks of one format are one stretch.
    void Emit(const Line& line) {
        const size_t count = line.items.size();
        for (size_t i = 0; i < count;) {
            const TextPiece& piece = *line.items[i].piece;
            if (piece.kind == TextPiece::Kind::Stack) EmitStack(line, line.items[i]);
            size_t end = i + 1;
            if (piece.kind == TextPiece::Kind::Word) {
                while (end < count && Continues(*line.items[end].piece, piece.format)) ++end;
                EmitStretch(line, i, end);
            } else if (piece.kind != TextPiece::Kind::Stack) {
                EmitRules(line.x + line.items[i].x, LineY(line, piece.format), line.items[i].width,
                          piece.format);
            }
            i = end;
        }
    }

    static bool Continues(const TextPiece& piece, const TextFormat& format) {
        const bool text =
            piece.kind == TextPiece::Kind::Word || piece.kind == TextPiece::Kind::Space;
        return text && piece.format == format;
    }

    void EmitStretch(const Line& line, size_t begin, size_t end) {
        const TextFormat& format = line.items[begin].piece->format;
        std::u16string characters;
        double width = 0;
        for (size_t i = begin; i < end; ++i) {
            characters += line.items[i].piece->characters;
            width += line.items[i].width;
        }
        const double x = line.x + line.items[begin].x, y = LineY(line, format);
        EmitRules(x, y, width, format);
        while (characters.ends_with(u' ')) characters.pop_back();
        layout.texts.push_back(
            {x, y, WidthOf(characters, format, fonts), format, std::move(characters)});
    }

    static double LineY(const Line& line, const TextFormat& format) {
        return line.y + (line.height - format.height) * format.vertical / 2;
    }

    void EmitRules(double x, double y, double width, const TextFormat& format) {
        const auto add = [&](double height) {
            layout.rules.push_back({x, y + height, x + width, y + height, format});
        };
        if (format.under) add(-0.2 * format.height);
        if (format.over) add(1.2 * format.height);
        if (format.through) add(0.5 * format.height);
    }

    // The upper part above half the height of the line, the lower one below.
    void EmitStack(const Line& line, const Item& item) {
        const TextPiece& piece = *item.piece;
        const TextFormat& format = piece.format;
        const double upper = WidthOf(piece.characters, format, fonts);
        const double lower = WidthOf(piece.lower, format, fonts);
        const double x = line.x + item.x, y = LineY(line, piece.format);
        const double middle = y + piece.format.height / 2, gap = 0.15 * format.height;
        const bool slanted = piece.divider == u'#';
        const auto free = [&](double width) { return slanted ? 0 : (item.width - width) / 2; };
        Add(x + free(upper), middle + gap, upper, format, piece.characters);
        const double lowerX = slanted ? x + item.width - lower : x + free(lower);
        Add(lowerX, middle - gap - format.height, lower, format, piece.lower);
        if (piece.divider == u'/') {
            layout.rules.push_back({x, middle, x + item.width, middle, format});
        } else if (slanted) {
            layout.rules.push_back({x + upper, middle - format.height, x + item.width - lower,
                                    middle + format.height, format});
        }
    }

    void Add(double x, double y, double width, const TextFormat& format,
             const std::u16string& characters) {
        if (!characters.empty()) layout.texts.push_back({x, y, width, format, characters});
    }

    const MTextBox& box;
    const Fonts& fonts;
    std::vector<Line> lines;
    double widest = 0;
    MTextLayout layout;
};

}  // namespace

MTextLayout LayOut(const std::vector<TextParagraph>& paragraphs, const MTextBox& box,
                   const Fonts& fonts) {
    return Layouter(box, fonts).LayOut(paragraphs);
}

}  // namespace painter
