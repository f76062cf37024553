// Events between two steps of a program.
#include "apps/desktop/LispWatch.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace desktop {

namespace {

constexpr qint64 kPace = 30;  // milliseconds between two looks at the events

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

LispWatch::Running::Running(LispWatch& watch) : watch(watch) {
    if (++watch.depth == 1) watch.clock.start();
}

LispWatch::Running::~Running() {
    if (--watch.depth > 0) return;
    if (watch.told && watch.onRunning) watch.onRunning(false);
    watch.told = false;
}

void LispWatch::Look() {
    if (looking || depth == 0 || clock.elapsed() < kPace) return;
    looking = true;
    if (!told && onRunning) onRunning(true);
    told = true;
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents();
    QCoreApplication::instance()->removeEventFilter(this);
    looking = false;
    clock.restart();
}

bool LispWatch::eventFilter(QObject* target, QEvent* event) {
    if (!IsInput(event->type())) return false;
    // Windows of the window system hand their events on to widgets, where they are stopped.
    if (target->isWindowType()) return false;
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        if (onInterrupt) onInterrupt();
        return true;
    }
    const auto* widget = qobject_cast<QWidget*>(target);
    const bool isMouse = dynamic_cast<QMouseEvent*>(event) != nullptr;
    if (isMouse && widget && button && widget == button) return false;
    if (event->type() == QEvent::Close) event->ignore();
    return true;
}

}  // namespace desktop
