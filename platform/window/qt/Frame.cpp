// The line around groups and lists.
#include "platform/window/qt/Frame.h"

#include <QPainter>

void PaintFrame(QPainter& painter, const QRect& rect, const QColor& color) {
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), color);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), color);
}

bool PaintsFrame(QFrame& frame, const QEvent& event) {
    if (event.type() != QEvent::Paint || frame.frameShape() == QFrame::NoFrame) return false;
    QPainter painter(&frame);
    PaintFrame(painter, frame.rect(), frame.palette().color(QPalette::Mid));
    return true;
}
