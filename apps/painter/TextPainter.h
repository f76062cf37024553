// Painting the texts of a display list.
#pragma once

#include <QColor>
#include <QGlyphRun>
#include <QPainter>

#include "apps/painter/DisplayList.h"

namespace painter {

struct PaintOptions;

// Texts are painted above everything else, so that none is hidden, and those of one font and size
// together: the glyphs of each are rendered once.
class TextPainter {
  public:
    TextPainter(const DisplayList& list, const QTransform& map, const PaintOptions& options)
        : list(list), map(map), options(options) {}

    void Add(const Item& item) { items.push_back(&item); }
    void Paint(QPainter& painter, const std::vector<QColor>& colours);

  private:
    struct Placed {
        QTransform map;  // pixels of the font to the device
        const TextItem* text;
        uint16_t colour;
    };
    std::vector<Placed> Place(std::vector<QLineF>& bars, std::vector<uint16_t>& barColours) const;
    void PaintPlaced(QPainter& painter, const Placed& placed);
    void PaintGlyphs(QPainter& painter, const TextItem& text);
    void PaintPaths(QPainter& painter, const Placed& placed, const QColor& colour) const;

    const DisplayList& list;
    const QTransform& map;
    const PaintOptions& options;
    std::vector<const Item*> items;
    std::vector<quint32> glyphs;
    std::vector<QPointF> places;
};

}  // namespace painter
