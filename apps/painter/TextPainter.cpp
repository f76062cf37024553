// Painting the texts of a display list.
#include "apps/painter/TextPainter.h"

#include <QPainterPath>
#include <algorithm>
#include <tuple>

#include "apps/painter/PagePainter.h"

namespace painter {

namespace {

// Sums of the columns: how large an em comes out along the text and across it.
double Across(const QTransform& map) { return std::hypot(map.m21(), map.m22()); }

QString ToQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

// Texts too small to be read become bars of half the height of their capitals.
std::vector<TextPainter::Placed> TextPainter::Place(std::vector<QLineF>& bars,
                                                    std::vector<uint16_t>& barColours) const {
    // The pixels of a font go downwards.
    const QTransform fromFont(1 / Font::kPixels, 0, 0, -1 / Font::kPixels, 0, 0);
    std::vector<Placed> placed;
    for (const Item* item : items) {
        const TextItem& text = list.texts[item->first];
        const QTransform place = text.placement * map;
        const double capHeight = list.fonts->At(text.font).CapHeight();
        if (Across(place) * capHeight < options.smallestText) {
            const double middle = capHeight / 2;
            bars.emplace_back(place.map(QPointF(0, middle)),
                              place.map(QPointF(double{text.advance}, middle)));
            barColours.push_back(item->colour);
        } else {
            placed.push_back({fromFont * place, &text, item->colour});
        }
    }
    return placed;
}

void TextPainter::Paint(QPainter& painter, const std::vector<QColor>& colours) {
    std::vector<QLineF> bars;
    std::vector<uint16_t> barColours;
    std::vector<Placed> placed = Place(bars, barColours);
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);  // of something that has no shape
    for (size_t begin = 0, end; begin < bars.size(); begin = end) {
        for (end = begin; end < bars.size() && barColours[end] == barColours[begin];) ++end;
        QColor colour = colours[barColours[begin]];
        colour.setAlphaF(0.5F);
        painter.setPen(QPen(colour, 0));
        painter.drawLines(&bars[begin], static_cast<int>(end - begin));
    }
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    const auto key = [](const Placed& p) {
        return std::make_tuple(p.text->font, p.map.m11(), p.map.m12(), p.map.m21(), p.map.m22(),
                               p.colour);
    };
    std::stable_sort(placed.begin(), placed.end(),
                     [&](const Placed& a, const Placed& b) { return key(a) < key(b); });
    int colour = -1;
    for (const Placed& text : placed) {
        if (options.textAsPaths) {
            PaintPaths(painter, text, colours[text.colour]);
            continue;
        }
        if (colour != text.colour) painter.setPen(colours[text.colour]);
        colour = text.colour;
        PaintPlaced(painter, text);
    }
    painter.resetTransform();
}

void TextPainter::PaintPlaced(QPainter& painter, const Placed& placed) {
    painter.setTransform(placed.map);
    if (placed.text->plain) {
        PaintGlyphs(painter, *placed.text);
    } else {
        painter.setFont(list.fonts->At(placed.text->font).Drawn());
        painter.drawText(QPointF(0, 0), ToQString(list.CharactersOf(*placed.text)));
    }
}

void TextPainter::PaintGlyphs(QPainter& painter, const TextItem& text) {
    const Font& font = list.fonts->At(text.font);
    glyphs.clear();
    places.clear();
    double x = 0;
    for (const char16_t c : list.CharactersOf(text)) {
        glyphs.push_back(font.Glyph(c));
        places.emplace_back(x, 0);
        x += font.Advance(c) * double{text.tracking} * Font::kPixels;
    }
    QGlyphRun run;
    run.setRawFont(font.Raw());
    run.setRawData(glyphs.data(), places.data(), static_cast<int>(glyphs.size()));
    painter.drawGlyphRun(QPointF(0, 0), run);
}

void TextPainter::PaintPaths(QPainter& painter, const Placed& placed, const QColor& colour) const {
    QPainterPath path;
    const Font& font = list.fonts->At(placed.text->font);
    const std::u16string_view characters = list.CharactersOf(*placed.text);
    if (placed.text->plain) {
        double x = 0;
        for (const char16_t c : characters) {
            path.addPath(font.Raw().pathForGlyph(font.Glyph(c)).translated(x, 0));
            x += font.Advance(c) * double{placed.text->tracking} * Font::kPixels;
        }
    } else {
        path.addText(0, 0, font.Drawn(), ToQString(characters));
    }
    path.setFillRule(Qt::WindingFill);
    painter.fillPath(placed.map.map(path), colour);
}

}  // namespace painter
