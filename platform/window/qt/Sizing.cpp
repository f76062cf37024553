// Sizes: WM_SIZE, and WM_SIZING of windows that the user sizes.
#include <QResizeEvent>

#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

// Which edges the user has hold of: the left or upper one if the opposite edge stayed. A window
// that was moved as a whole in between counts as held at its right and lower edges.
UINT SideOf(const QRect& before, const QRect& now) {
    const bool across = before.width() != now.width(), down = before.height() != now.height();
    const bool left = across && before.right() == now.right();
    const bool top = down && before.bottom() == now.bottom();
    if (across && down)
        return top ? (left ? WMSZ_TOPLEFT : WMSZ_TOPRIGHT)
                   : (left ? WMSZ_BOTTOMLEFT : WMSZ_BOTTOMRIGHT);
    if (down) return top ? WMSZ_TOP : WMSZ_BOTTOM;
    return left ? WMSZ_LEFT : WMSZ_RIGHT;
}

UINT SizeTypeOf(const QWidget& widget) {
    if (widget.isMinimized()) return SIZE_MINIMIZED;
    return widget.isMaximized() || widget.isFullScreen() ? SIZE_MAXIMIZED : SIZE_RESTORED;
}

}  // namespace

// The window system tells of a size when it is there: WM_SIZING follows, and where a handler
// changes the rectangle the window goes back to that. True when it went, which told of its own
// WM_SIZE.
bool WindowHandle::HoldSize() {
    const QRect now = widget->frameGeometry();
    CRect allowed = ToCRect(now);
    Deliver(WM_SIZING, SideOf(lastFrame, now), reinterpret_cast<LPARAM>(&allowed));
    if (!alive || !widget || ToQRect(allowed) == now) return false;
    Move(ToQRect(allowed));
    return true;
}

bool WindowHandle::DispatchSize(QWidget* watched, QEvent* event,
                                const std::function<bool()>& byDefault) {
    const bool byUser = widget->isWindow() && !programMoves && widget->isVisible() &&
                        SizeTypeOf(*widget) == SIZE_RESTORED &&
                        static_cast<QResizeEvent*>(event)->oldSize().isValid() &&
                        lastFrame.isValid() && lastFrame.size() != widget->frameGeometry().size();
    bool taken = true;
    Guarded([&] {
        if (byUser && HoldSize()) return;
        if (!alive || !widget) return;
        if (widget->isWindow()) lastFrame = widget->frameGeometry();
        DeliverEvent(WM_SIZE, SizeTypeOf(*widget), MAKELPARAM(watched->width(), watched->height()),
                     [&] { return taken = byDefault(); });
    });
    return taken;
}

void WindowHandle::Move(const QRect& wanted) {
    if (!widget) return;
    const QRect rect = fitted ? fitted(wanted) : wanted;
    ++programMoves;
    if (!widget->isWindow()) {
        widget->setGeometry(rect);
    } else {
        const QSize size = rect.size() - (widget->frameGeometry().size() - widget->size());
        if (HasStyle(WS_THICKFRAME))
            widget->resize(size);
        else
            widget->setFixedSize(size);
        // While the user drags, a position said again makes the window creep.
        if (rect.topLeft() != widget->frameGeometry().topLeft()) widget->move(rect.topLeft());
    }
    --programMoves;
}
