// Painting a display list: lines in batches, texts as runs of glyphs.
#include "apps/painter/PagePainter.h"

#include <QPainterPath>
#include <algorithm>

#include "apps/painter/ItemPaths.h"
#include "apps/painter/TextPainter.h"

namespace painter {

namespace {

Bounds WorldWindow(const QTransform& worldToDevice, const QRectF& window) {
    bool regular = false;
    const QRectF world = worldToDevice.inverted(&regular).mapRect(window);
    if (!regular) return {};
    return {world.left(), world.top(), world.right(), world.bottom()};
}

class ListPainter {
  public:
    ListPainter(QPainter& painter, const DisplayList& list, const QTransform& map,
                const PaintOptions& options)
        : painter(painter), list(list), map(map), options(options), texts(list, map, options) {
        scale = std::sqrt(std::abs(map.determinant()));
        for (const Colour colour : list.colours) colours.push_back(Settled(colour));
        for (const auto& dash : list.dashes) dashes.push_back(PixelsOf(dash));
        painter.setRenderHint(QPainter::Antialiasing, options.smooth);
        painter.setRenderHint(QPainter::TextAntialiasing, true);
    }

    void PaintItems(const Bounds& window) {
        ForEachWithin(list, window, [this](const Item& item) { PaintItem(item); });
        FlushLines();
        FlushDots();
        texts.Paint(painter, colours);
    }

  private:
    QColor Settled(Colour colour) const {
        if (colour == kBackground) return options.background;
        if (colour != kForeground) return QColor::fromRgb(colour);
        return options.background.lightnessF() > 0.5 ? Qt::black : Qt::white;
    }

    // A pattern too fine to be seen is a plain line.
    QList<qreal> PixelsOf(const std::vector<double>& dash) const {
        constexpr double kFinest = 3;
        QList<qreal> pixels;
        double sum = 0;
        for (const double length : dash) {
            pixels.push_back(std::max(length * scale / options.lineWidth, 0.01));
            sum += length * scale;
        }
        return sum < kFinest ? QList<qreal>() : pixels;
    }

    // Items that come to less than a pixel are points.
    void PaintItem(const Item& item) {
        if (item.kind == ItemKind::Text) {
            texts.Add(item);
            return;
        }
        const double size = std::max(item.bounds.Width(), item.bounds.Height()) * scale;
        if (size < 0.75) {
            AddDot(item, item.kind == ItemKind::Dot ? 2 : 1);
            return;
        }
        Use(item);
        const QPointF* point = &list.points[item.first];
        switch (item.kind) {
            case ItemKind::Line:
                lines.emplace_back(map.map(point[0]), map.map(point[1]));
                return;
            case ItemKind::Polyline:
                return AddPolyline(point, item);
            case ItemKind::Curve:
                FlushLines();
                return painter.drawPath(PathOf(list, item, map));
            case ItemKind::Wide:
                FlushLines();
                return PaintWide(item);
            default:
                FlushLines();
                return PaintFill(item);
        }
    }

    // A dashed line must run through its corners; a plain one may come in pieces.
    void AddPolyline(const QPointF* point, const Item& item) {
        if (dashes[item.dash].isEmpty()) {
            QPointF from = map.map(point[0]);
            for (uint32_t i = 1; i < item.count; ++i) {
                const QPointF to = map.map(point[i]);
                lines.emplace_back(from, to);
                from = to;
            }
            return;
        }
        polyline.clear();
        for (uint32_t i = 0; i < item.count; ++i) polyline.push_back(map.map(point[i]));
        painter.drawPolyline(polyline.constData(), static_cast<int>(polyline.size()));
    }

    void PaintFill(const Item& item) {
        const QColor& colour = colours[item.colour];
        painter.setPen(QPen(colour, 0.5));  // so that the thinnest one is seen
        painter.setBrush(colour);
        painter.drawPath(PathOf(list, item, map));
        painter.setBrush(Qt::NoBrush);
        colourInUse = -1;
    }

    void PaintWide(const Item& item) {
        const double width = std::max(item.width * scale, options.lineWidth);
        painter.setPen(
            QPen(colours[item.colour], width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawPath(PathOf(list, item, map));
        colourInUse = -1;
    }

    // The pen of the item, after what waits for the one before it.
    void Use(const Item& item) {
        if (colourInUse == item.colour && dashInUse == item.dash) return;
        FlushLines();
        colourInUse = item.colour;
        dashInUse = item.dash;
        QPen pen(colours[item.colour], options.lineWidth, Qt::SolidLine, Qt::FlatCap,
                 Qt::RoundJoin);
        pen.setCosmetic(true);
        if (!dashes[item.dash].isEmpty()) pen.setDashPattern(dashes[item.dash]);
        painter.setPen(pen);
    }

    void FlushLines() {
        if (!lines.empty()) painter.drawLines(lines.data(), static_cast<int>(lines.size()));
        lines.clear();
    }

    void AddDot(const Item& item, double size) {
        const QPointF place = map.map(QPointF(item.bounds.left, item.bounds.bottom));
        dots.push_back(
            {QRectF(place.x() - size / 2, place.y() - size / 2, size, size), item.colour});
    }

    // Dots have no order among the lines, so that they wait to the end.
    void FlushDots() {
        for (const Dot& dot : dots) painter.fillRect(dot.area, colours[dot.colour]);
        dots.clear();
    }

    struct Dot {
        QRectF area;
        uint16_t colour;
    };

    QPainter& painter;
    const DisplayList& list;
    const QTransform& map;
    const PaintOptions& options;
    TextPainter texts;
    double scale = 1;
    std::vector<QColor> colours;
    std::vector<QList<qreal>> dashes;
    std::vector<QLineF> lines;
    std::vector<Dot> dots;
    QList<QPointF> polyline;
    int colourInUse = -1, dashInUse = -1;
};

}  // namespace

QTransform FitTransform(const Bounds& extents, const QRectF& target) {
    if (extents.IsEmpty()) return {};
    const double width = std::max(extents.Width(), 1e-9);
    const double height = std::max(extents.Height(), 1e-9);
    const double scale = std::min(target.width() / width, target.height() / height);
    QTransform map;
    map.translate(target.center().x(), target.center().y());
    map.scale(scale, -scale);
    map.translate(-(extents.left + extents.right) / 2, -(extents.bottom + extents.top) / 2);
    return map;
}

void Paint(QPainter& painter, const DisplayList& list, const QTransform& worldToDevice,
           const QRectF& window, const PaintOptions& options) {
    const Bounds world = WorldWindow(worldToDevice, window);
    if (world.IsEmpty()) return;
    ListPainter(painter, list, worldToDevice, options).PaintItems(world);
}

}  // namespace painter
