// Cursors: their shapes, and where the mouse is.
#include "platform/window/qt/Cursor.h"

#include <QCursor>
#include <utility>

#include "platform/window/AfxWin.h"

struct CursorShape {
    int number;
    Qt::CursorShape shape;
};

namespace {

constexpr CursorShape SHAPES[] = {
    {IDC_ARROW, Qt::ArrowCursor},
    {IDC_IBEAM, Qt::IBeamCursor},
    {IDC_WAIT, Qt::WaitCursor},
    {IDC_HAND, Qt::PointingHandCursor},
};

CursorScope* innermost = nullptr;
HCURSOR current = &SHAPES[0];

}  // namespace

CursorScope::CursorScope(QWidget* widget)
    : widget(widget), outer(widget ? std::exchange(innermost, this) : nullptr) {}

CursorScope::~CursorScope() {
    if (innermost != this) return;
    innermost = outer;
    if (set || current == &SHAPES[0]) return;
    if (widget) widget->unsetCursor();
    current = &SHAPES[0];
}

HCURSOR LoadCursor(const void*, int shape) {
    for (const CursorShape& entry : SHAPES)
        if (entry.number == shape) return &entry;
    return nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    if (!cursor) cursor = &SHAPES[0];
    if (innermost && innermost->widget) {
        innermost->set = true;
        innermost->widget->setCursor(cursor->shape);
    }
    return std::exchange(current, cursor);
}

BOOL GetCursorPos(POINT* screen) {
    const QPoint at = QCursor::pos();
    *screen = CPoint(at.x(), at.y());
    return TRUE;
}
