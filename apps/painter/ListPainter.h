// The work of painting one picture.
#pragma once

#include <QLineF>

#include "apps/painter/PagePainter.h"
#include "apps/painter/TextPainter.h"

namespace painter {

// Lines are painted in batches. What is to be seen above others comes later: the bars of small
// texts above all shapes, letters above all.
class ListPainter {
  public:
    ListPainter(QPainter& painter, const DisplayList& list, const QTransform& map,
                const PaintOptions& options);

    // What is within the window (device coordinates). Tells whether it has found letters.
    bool PaintShapesAndBars(const QRectF& window);
    bool FindLetters(const QRectF& window);  // without painting anything else
    void PaintLetters() { texts.PaintLetters(); }

  private:
    void PaintItem(const ListPart& part, const Item& item);
    void PaintDot(const Item& item);
    void AddPolyline(const QPointF* point, const Item& item);
    void PaintFill(const ListPart& part, const Item& item);
    void PaintWide(const ListPart& part, const Item& item);
    void Use(const Item& item);
    void AddLine(QPointF from, QPointF to);
    void FlushLines();

    QPainter& painter;
    const DisplayList& list;
    const AffineMap map;
    const QTransform& transform;
    const PaintOptions& options;
    std::vector<QColor> colours;
    std::vector<QList<qreal>> dashes;
    TextPainter texts;
    std::vector<QLineF> lines;
    QList<QPointF> polyline;
    int colourInUse = -1, dashInUse = -1;
};

}  // namespace painter
