// Painting a display list.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>

#include "apps/painter/DisplayList.h"

namespace painter {

struct PaintOptions {
    QColor background = Qt::white;  // decides how the foreground is painted; wipeouts are filled so
    double lineWidth = 1;           // of thin lines, in pixels of the device
    bool smooth = true;
    bool textAsPaths = false;  // for devices that cannot paint glyphs
    // Texts whose capitals are lower are painted as a bar, in pixels.
    double smallestText = 2;
};

// From drawing units to the device: the whole of `extents` in the middle of the target, upright.
QTransform FitTransform(const Bounds& extents, const QRectF& target);

// Paints what lies within `window` (device coordinates), without the background. The painter's own
// transform must be the identity; its pen, brush and hints are changed.
void Paint(QPainter& painter, const DisplayList& list, const QTransform& worldToDevice,
           const QRectF& window, const PaintOptions& options = {});

// The same on all of a picture that has its background already. Several threads paint bands of a
// large list; the letters, whose fonts belong to this one, come last.
void PaintImage(QImage& image, const DisplayList& list, const QTransform& worldToDevice,
                const PaintOptions& options = {});

}  // namespace painter
