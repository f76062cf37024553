// Painting the texts of a display list.
#include "apps/painter/TextPainter.h"

#include <QPainterPath>
#include <algorithm>
#include <tuple>

#include "apps/painter/PagePainter.h"

namespace painter {

namespace {

constexpr size_t kBatch = 4096;  // lines, which stay in the processor's cache

QString ToQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

TextPainter::TextPainter(QPainter& painter, const DisplayList& list, const QTransform& map,
                         const PaintOptions& options, const std::vector<QColor>& colours)
    : painter(painter), list(list), map(map), affine(map), options(options), colours(colours) {
    for (uint16_t font = 0; list.fonts && font < list.fonts->Choices().size(); ++font)
        capHeights.push_back(list.fonts->At(font).CapHeight());
}

// Texts too small to be read become bars of half the height of their capitals.
void TextPainter::Add(const ListPart& part, const Item& item) {
    const TextItem& text = part.texts[item.first];
    const QTransform& own = text.placement;
    const double capHeight = capHeights[text.font];
    const QPointF up = affine.Vector({own.m21() * capHeight, own.m22() * capHeight});
    if (std::hypot(up.x(), up.y()) >= options.smallestText) {
        // The pixels of a font go downwards.
        const QTransform fromFont(1 / Font::kPixels, 0, 0, -1 / Font::kPixels, 0, 0);
        placed.push_back({fromFont * own * map, &part, &text, item.colour});
        return;
    }
    const QPointF begin = affine.Map({own.dx(), own.dy()}) + up / 2;
    const QPointF along = affine.Vector({own.m11(), own.m12()}) * double{text.advance};
    bars.push_back({QLineF(begin, begin + along), item.colour});
}

void TextPainter::PaintBars() {
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);  // of something that has no shape
    std::vector<QLineF> lines;
    for (size_t begin = 0, end; begin < bars.size(); begin = end) {
        lines.clear();
        for (end = begin; end < bars.size() && end - begin < kBatch; ++end) {
            if (bars[end].colour != bars[begin].colour) break;
            lines.push_back(bars[end].line);
        }
        QColor colour = colours[bars[begin].colour];
        colour.setAlphaF(0.5F);
        painter.setPen(QPen(colour, 0));
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }
    painter.setRenderHint(QPainter::Antialiasing, smooth);
}

void TextPainter::PaintLetters() {
    const auto key = [](const Placed& p) {
        return std::make_tuple(p.text->font, p.map.m11(), p.map.m12(), p.map.m21(), p.map.m22(),
                               p.colour);
    };
    std::stable_sort(placed.begin(), placed.end(),
                     [&](const Placed& a, const Placed& b) { return key(a) < key(b); });
    int colour = -1;
    for (const Placed& text : placed) {
        if (options.textAsPaths) {
            PaintPaths(text);
            continue;
        }
        if (colour != text.colour) painter.setPen(colours[text.colour]);
        colour = text.colour;
        PaintPlaced(text);
    }
    painter.resetTransform();
}

void TextPainter::PaintPlaced(const Placed& text) {
    painter.setTransform(text.map);
    if (text.text->plain) return PaintGlyphs(text);
    painter.setFont(list.fonts->At(text.text->font).Drawn());
    painter.drawText(QPointF(0, 0), ToQString(text.part->CharactersOf(*text.text)));
}

void TextPainter::PaintGlyphs(const Placed& text) {
    const Font& font = list.fonts->At(text.text->font);
    glyphs.clear();
    places.clear();
    double x = 0;
    for (const char16_t c : text.part->CharactersOf(*text.text)) {
        glyphs.push_back(font.Glyph(c));
        places.emplace_back(x, 0);
        x += font.Advance(c) * double{text.text->tracking} * Font::kPixels;
    }
    QGlyphRun run;
    run.setRawFont(font.Raw());
    run.setRawData(glyphs.data(), places.data(), static_cast<int>(glyphs.size()));
    painter.drawGlyphRun(QPointF(0, 0), run);
}

void TextPainter::PaintPaths(const Placed& text) const {
    QPainterPath path;
    const Font& font = list.fonts->At(text.text->font);
    const std::u16string_view characters = text.part->CharactersOf(*text.text);
    if (text.text->plain) {
        double x = 0;
        for (const char16_t c : characters) {
            path.addPath(font.Raw().pathForGlyph(font.Glyph(c)).translated(x, 0));
            x += font.Advance(c) * double{text.text->tracking} * Font::kPixels;
        }
    } else {
        path.addText(0, 0, font.Drawn(), ToQString(characters));
    }
    path.setFillRule(Qt::WindingFill);
    painter.fillPath(text.map.map(path), colours[text.colour]);
}

}  // namespace painter
