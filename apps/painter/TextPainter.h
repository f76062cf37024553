// Painting the texts of a display list.
#pragma once

#include <QColor>
#include <QGlyphRun>
#include <QPainter>

#include "apps/painter/AffineMap.h"
#include "apps/painter/DisplayList.h"

namespace painter {

struct PaintOptions;

// Texts are painted above everything else, so that none is hidden. Those too small to be read are
// bars; the letters of one font and size are painted together, so that each is rendered once.
class TextPainter {
  public:
    // All that is given is kept by reference.
    TextPainter(QPainter& painter, const DisplayList& list, const QTransform& map,
                const PaintOptions& options, const std::vector<QColor>& colours);

    void Add(const ListPart& part, const Item& item) { texts.push_back({&part, &item}); }
    // Of what was added; both tell whether there are letters to paint as well.
    bool PaintBars();
    bool PassOverBars();
    void PaintLetters();

  private:
    struct Added {
        const ListPart* part;
        const Item* item;
        const TextItem& Text() const { return part->texts[item->first]; }
    };
    struct Placed {
        QTransform map;  // pixels of the font to the device
        const ListPart* part;
        const TextItem* text;
        uint16_t colour;
    };
    bool TakesLetters(const Added& added);
    QLineF BarOf(const Added& added) const;
    QPointF UpOf(const TextItem& text) const;
    void PaintPlaced(const Placed& text);
    void PaintGlyphs(const Placed& text);
    void PaintPaths(const Placed& text) const;

    QPainter& painter;
    const DisplayList& list;
    const QTransform& map;
    const AffineMap affine;
    const PaintOptions& options;
    const std::vector<QColor>& colours;
    std::vector<double> capHeights;  // by number of the font
    Row<Added> texts;
    std::vector<Placed> placed;
    std::vector<quint32> glyphs;
    std::vector<QPointF> places;
};

}  // namespace painter
