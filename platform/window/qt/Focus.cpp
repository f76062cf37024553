// Focus changes as messages.
#include "platform/window/qt/Focus.h"

#include <QApplication>
#include <QPointer>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/Dispatch.h"

namespace {

Qt::KeyboardModifiers noted;

void NoteTabStop(HWND window) {
    HWND stop = nullptr;
    for (; window && window->HasStyle(WS_CHILD); window = window->parent)
        if (!stop && window->HasStyle(WS_TABSTOP)) stop = window;
    if (window && stop) window->lastFocus = stop;
}

void FocusMoved(QWidget* old, QWidget* now) {
    WindowHandle* from = HandleAround(old);
    WindowHandle* to = HandleAround(now);
    if (from == to) return;
    NoteTabStop(to);
    Guarded([=] {
        if (from) from->Deliver(WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
        if (to && IsWindow(to) && HandleAround(QApplication::focusWidget()) == to)
            to->Deliver(WM_SETFOCUS, reinterpret_cast<WPARAM>(from), 0);
    });
}

const QEvent::Type POSTED = static_cast<QEvent::Type>(QEvent::registerEventType());

}  // namespace

void WatchFocus() {
    static QPointer<QCoreApplication> watched;
    if (watched == qApp) return;
    watched = qApp;
    QObject::connect(qApp, &QApplication::focusChanged, qApp, &FocusMoved);
}

void NoteModifiers(Qt::KeyboardModifiers modifiers) { noted = modifiers; }
Qt::KeyboardModifiers NotedModifiers() { return noted; }

PostedMessage::PostedMessage(UINT message, WPARAM wParam, LPARAM lParam)
    : QEvent(POSTED), message(message), wParam(wParam), lParam(lParam) {}

PostedMessage* PostedMessage::From(QEvent* event) {
    return event->type() == POSTED ? static_cast<PostedMessage*>(event) : nullptr;
}

short GetKeyState(int key) {
    constexpr short DOWN = -32768;
    const auto held = [](Qt::KeyboardModifier modifier) {
        return noted.testFlag(modifier) ? DOWN : short{0};
    };
    switch (static_cast<UINT>(key)) {
        case VK_SHIFT:
            return held(Qt::ShiftModifier);
        case VK_CONTROL:
            return held(Qt::ControlModifier);
        case VK_MENU:
            return held(Qt::AltModifier);
        default:
            return 0;
    }
}
