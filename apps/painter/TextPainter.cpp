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

// From the baseline to the top of the capitals, on the device.
QPointF TextPainter::UpOf(const TextItem& text) const {
    const double capHeight = capHeights[text.font];
    return affine.Vector({text.placement.yx * capHeight, text.placement.yy * capHeight});
}

bool TextPainter::TakesLetters(const Added& added) {
    const TextItem& text = added.Text();
    const QPointF up = UpOf(text);
    if (std::hypot(up.x(), up.y()) < options.smallestText) return false;
    // The pixels of a font go downwards.
    const QTransform fromFont(1 / Font::kPixels, 0, 0, -1 / Font::kPixels, 0, 0);
    placed.push_back(
        {fromFont * text.placement.Transform() * map, added.part, &text, added.item->colour});
    return true;
}

// Along the middle of the capitals.
QLineF TextPainter::BarOf(const Added& added) const {
    const TextItem& text = added.Text();
    const AffineMap& own = text.placement;
    const QPointF begin = affine.Map({own.dx, own.dy}) + UpOf(text) / 2;
    return {begin, begin + affine.Vector({own.xx, own.xy}) * double{text.advance}};
}

bool TextPainter::PaintBars() {
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);  // of something that has no shape
    std::vector<QLineF> bars;
    int colour = -1;
    const auto flush = [&] {
        painter.drawLines(bars.data(), static_cast<int>(bars.size()));
        bars.clear();
    };
    for (const Added& added : texts) {
        if (TakesLetters(added)) continue;
        if (colour != added.item->colour || bars.size() >= kBatch) flush();
        if (colour != added.item->colour) {
            colour = added.item->colour;
            QColor pale = colours[added.item->colour];
            pale.setAlphaF(0.5F);
            painter.setPen(QPen(pale, 0));
        }
        bars.push_back(BarOf(added));
    }
    flush();
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    return !placed.empty();
}

bool TextPainter::PassOverBars() {
    for (const Added& added : texts) TakesLetters(added);
    return !placed.empty();
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
