// The line around groups and lists.
#pragma once

#include <QColor>
#include <QEvent>
#include <QFrame>

class QPainter;

// One pixel wide along the inside of the rectangle. A pen, and so the toolkit's styles, lose whole
// sides of a rectangle that begins between two pixels of a screen scaled by one and a half.
void PaintFrame(QPainter& painter, const QRect& rect, const QColor& color);

// For the events of a frame with a viewport: true when it was a paint event, which is done with.
bool PaintsFrame(QFrame& frame, const QEvent& event);
