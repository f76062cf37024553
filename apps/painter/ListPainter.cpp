// Items on a painter.
#include "apps/painter/ListPainter.h"

#include <algorithm>

#include "apps/painter/ItemPaths.h"

namespace painter {

namespace {

constexpr size_t kBatch = 4096;  // lines, which stay in the processor's cache

Bounds WorldWindow(const QTransform& worldToDevice, const QRectF& window) {
    bool regular = false;
    const QRectF world = worldToDevice.inverted(&regular).mapRect(window);
    if (!regular) return {};
    return {world.left(), world.top(), world.right(), world.bottom()};
}

QColor Settled(Colour colour, const QColor& background) {
    if (colour == kBackground) return background;
    if (colour != kForeground) return QColor::fromRgb(colour);
    return background.lightnessF() > 0.5 ? Qt::black : Qt::white;
}

std::vector<QColor> Settled(const std::vector<Colour>& colours, const QColor& background) {
    std::vector<QColor> settled;
    settled.reserve(colours.size());
    for (const Colour colour : colours) settled.push_back(Settled(colour, background));
    return settled;
}

// A pattern too fine to be seen is a plain line.
QList<qreal> PixelsOf(const std::vector<double>& dash, double scale, double lineWidth) {
    constexpr double kFinest = 3;
    QList<qreal> pixels;
    double sum = 0;
    for (const double length : dash) {
        pixels.push_back(std::max(length * scale / lineWidth, 0.01));
        sum += length * scale;
    }
    return sum < kFinest ? QList<qreal>() : pixels;
}

}  // namespace

ListPainter::ListPainter(QPainter& painter, const DisplayList& list, const QTransform& transform,
                         const PaintOptions& options)
    : painter(painter),
      list(list),
      map(transform),
      transform(transform),
      options(options),
      colours(Settled(list.colours, options.background)),
      texts(painter, list, transform, options, colours) {
    for (const auto& dash : list.dashes)
        dashes.push_back(PixelsOf(dash, map.Scale(), options.lineWidth));
    painter.setRenderHint(QPainter::Antialiasing, options.smooth);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
}

bool ListPainter::PaintShapesAndBars(const QRectF& window) {
    ForEachWithin(list, WorldWindow(transform, window),
                  [this](const ListPart& part, const Item& item) { PaintItem(part, item); });
    FlushLines();
    return texts.PaintBars();
}

bool ListPainter::FindLetters(const QRectF& window) {
    ForEachWithin(list, WorldWindow(transform, window),
                  [this](const ListPart& part, const Item& item) {
                      if (item.kind == ItemKind::Text) texts.Add(part, item);
                  });
    return texts.PassOverBars();
}

// Items that come to less than a pixel are points.
void ListPainter::PaintItem(const ListPart& part, const Item& item) {
    if (item.kind == ItemKind::Text) return texts.Add(part, item);
    constexpr double kPoint = 0.75;
    if (std::max(item.bounds.Width(), item.bounds.Height()) * map.Scale() < kPoint)
        return PaintDot(item);
    Use(item);
    const QPointF* point = &part.points[item.first];
    switch (item.kind) {
        case ItemKind::Line:
            return AddLine(map.Map(point[0]), map.Map(point[1]));
        case ItemKind::Polyline:
            return AddPolyline(point, item);
        case ItemKind::Curve:
            FlushLines();
            return painter.drawPath(PathOf(part, item, transform));
        case ItemKind::Wide:
            FlushLines();
            return PaintWide(part, item);
        default:
            FlushLines();
            return PaintFill(part, item);
    }
}

// Among lines it does not matter which is above.
void ListPainter::PaintDot(const Item& item) {
    const double size = item.kind == ItemKind::Dot ? 2 : 1;
    const QPointF place = map.Map({item.bounds.left, item.bounds.bottom});
    painter.fillRect(QRectF(place.x() - size / 2, place.y() - size / 2, size, size),
                     colours[item.colour]);
}

// A dashed line must run through its corners; a plain one may come in pieces.
void ListPainter::AddPolyline(const QPointF* point, const Item& item) {
    if (dashes[item.dash].isEmpty()) {
        QPointF from = map.Map(point[0]);
        for (uint32_t i = 1; i < item.count; ++i) {
            const QPointF to = map.Map(point[i]);
            AddLine(from, to);
            from = to;
        }
        return;
    }
    polyline.clear();
    for (uint32_t i = 0; i < item.count; ++i) polyline.push_back(map.Map(point[i]));
    painter.drawPolyline(polyline.constData(), static_cast<int>(polyline.size()));
}

void ListPainter::PaintFill(const ListPart& part, const Item& item) {
    const QColor& colour = colours[item.colour];
    painter.setPen(QPen(colour, 0.5));  // so that the thinnest one is seen
    painter.setBrush(colour);
    painter.drawPath(PathOf(part, item, transform));
    painter.setBrush(Qt::NoBrush);
    colourInUse = -1;
}

void ListPainter::PaintWide(const ListPart& part, const Item& item) {
    const double width = std::max(item.width * map.Scale(), options.lineWidth);
    painter.setPen(QPen(colours[item.colour], width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPath(PathOf(part, item, transform));
    colourInUse = -1;
}

// The pen of the item, after what waits for the one before it.
void ListPainter::Use(const Item& item) {
    if (colourInUse == item.colour && dashInUse == item.dash) return;
    FlushLines();
    colourInUse = item.colour;
    dashInUse = item.dash;
    QPen pen(colours[item.colour], options.lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    if (!dashes[item.dash].isEmpty()) pen.setDashPattern(dashes[item.dash]);
    painter.setPen(pen);
}

void ListPainter::AddLine(QPointF from, QPointF to) {
    lines.emplace_back(from, to);
    if (lines.size() >= kBatch) FlushLines();
}

void ListPainter::FlushLines() {
    if (!lines.empty()) painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    lines.clear();
}

}  // namespace painter
