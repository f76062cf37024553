// Events of the toolkit as messages, and what becomes of messages that no handler kept.
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/Cursor.h"
#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/Focus.h"
#include "platform/window/qt/KeyInput.h"

namespace {

using Default = std::function<bool()>;

struct MouseMessage {
    QEvent::Type type;
    Qt::MouseButton button;
    UINT message;
};

constexpr MouseMessage MOUSE[] = {
    {QEvent::MouseButtonPress, Qt::LeftButton, WM_LBUTTONDOWN},
    {QEvent::MouseButtonRelease, Qt::LeftButton, WM_LBUTTONUP},
    {QEvent::MouseButtonDblClick, Qt::LeftButton, WM_LBUTTONDBLCLK},
    {QEvent::MouseButtonPress, Qt::RightButton, WM_RBUTTONDOWN},
    {QEvent::MouseButtonRelease, Qt::RightButton, WM_RBUTTONUP},
    {QEvent::MouseMove, Qt::NoButton, WM_MOUSEMOVE},
};

UINT MouseMessageOf(const QMouseEvent& event) {
    for (const MouseMessage& entry : MOUSE)
        if (entry.type == event.type() && entry.button == event.button()) return entry.message;
    return 0;
}

WPARAM MouseFlags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    return (buttons & Qt::LeftButton ? MK_LBUTTON : 0) |
           (buttons & Qt::RightButton ? MK_RBUTTON : 0) |
           (modifiers & Qt::ShiftModifier ? MK_SHIFT : 0) |
           (modifiers & Qt::ControlModifier ? MK_CONTROL : 0);
}

LPARAM Packed(const QPoint& point) {
    return MAKELPARAM(static_cast<uint16_t>(point.x()), static_cast<uint16_t>(point.y()));
}

const QEvent* passedOn = nullptr;

bool MakesMessage(QEvent::Type type) {
    constexpr QEvent::Type TYPES[] = {
        QEvent::KeyPress,
        QEvent::KeyRelease,
        QEvent::InputMethod,
        QEvent::MouseButtonPress,
        QEvent::MouseButtonRelease,
        QEvent::MouseButtonDblClick,
        QEvent::MouseMove,
        QEvent::Wheel,
        QEvent::Leave,
        QEvent::Paint,
        QEvent::Resize,
        QEvent::Move,
        QEvent::Show,
        QEvent::Hide,
        QEvent::EnabledChange,
        QEvent::Close,
    };
    return std::find(std::begin(TYPES), std::end(TYPES), type) != std::end(TYPES);
}

// Gives the message and says whether the event ends here: it does when a handler kept it from the
// widget, else as the widget says.
bool DeliverInput(WindowHandle& window, QEvent& event, UINT message, WPARAM wParam, LPARAM lParam,
                  const Default& byDefault) {
    bool kept = false, taken = true;
    Guarded([&] {
        window.DeliverEvent(
            message, wParam, lParam, [&] { return taken = byDefault(); }, &kept);
    });
    if (!kept) return taken;
    event.accept();
    return true;
}

bool DispatchMouse(WindowHandle& window, QWidget* watched, QMouseEvent& event,
                   const Default& byDefault) {
    NoteModifiers(event.modifiers());
    const UINT message = MouseMessageOf(event);
    if (!message || !watched->isEnabled()) return byDefault();
    const CursorScope cursor(message == WM_MOUSEMOVE ? watched : nullptr);
    return DeliverInput(window, event, message, MouseFlags(event.buttons(), event.modifiers()),
                        Packed(event.position().toPoint()), byDefault);
}

bool DispatchWheel(WindowHandle& window, QWidget* watched, QWheelEvent& event,
                   const Default& byDefault) {
    NoteModifiers(event.modifiers());
    if (!watched->isEnabled()) return byDefault();
    const QPoint turned = event.angleDelta();
    const bool across = std::abs(turned.x()) > std::abs(turned.y());
    // Windows counts a turn to the right as forwards.
    const int delta = across ? -turned.x() : turned.y();
    const WPARAM flags = MouseFlags(event.buttons(), event.modifiers());
    return DeliverInput(window, event, across ? WM_MOUSEHWHEEL : WM_MOUSEWHEEL,
                        MAKEWPARAM(flags, static_cast<uint16_t>(delta)),
                        Packed(event.globalPosition().toPoint()), byDefault);
}

}  // namespace

bool WindowHandle::eventFilter(QObject* watched, QEvent* event) {
    if (!alive) return event->isInputEvent();
    if (watched == widget && !MakesMessage(event->type())) return false;
    if (watched == widget)
        return DispatchEvent(widget, event, [this, event] {
            return widget && static_cast<QObject*>(widget)->event(event);
        });
    return FilterWatchedKeys(*watched, *event);
}

// Of another widget whose keys are this window's. A list that drops down takes some of its keys
// already when they might be shortcuts: they wait until the messages have had their turn.
bool WindowHandle::FilterWatchedKeys(QObject& watched, QEvent& event) {
    if (event.type() == QEvent::ShortcutOverride && &event != passedOn) {
        event.accept();
        return true;
    }
    if (event.type() != QEvent::KeyPress) return false;
    auto& key = static_cast<QKeyEvent&>(event);
    bool passes = false;
    HandleKeyPress(*this, key, [&passes] { return passes = true; });
    if (!passes) return true;
    QKeyEvent shortcut(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text());
    const QPointer<QWidget> list = qobject_cast<QWidget*>(&watched);
    passedOn = &shortcut;
    QCoreApplication::sendEvent(&watched, &shortcut);
    passedOn = nullptr;
    return !list || !list->isVisible();
}

bool WindowHandle::DispatchEvent(QWidget* watched, QEvent* event, const Default& byDefault) {
    if (!alive || foreign || !MakesMessage(event->type())) return byDefault();
    const auto deliver = [&](UINT message, WPARAM wParam, LPARAM lParam) {
        return DeliverInput(*this, *event, message, wParam, lParam, byDefault);
    };
    switch (event->type()) {
        case QEvent::KeyPress:
            HandleKeyPress(*this, static_cast<QKeyEvent&>(*event), byDefault);
            event->accept();  // a key goes to one window, not on to those around it
            return true;
        case QEvent::KeyRelease: {
            auto& key = static_cast<QKeyEvent&>(*event);
            NoteModifiers(key.modifiers());
            deliver(WM_KEYUP, VirtualKey(key), 1);
            event->accept();
            return true;
        }
        case QEvent::InputMethod:
            if (static_cast<QInputMethodEvent*>(event)->commitString().isEmpty())
                return byDefault();
            HandleComposed(*this, static_cast<QInputMethodEvent&>(*event));
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
            return DispatchMouse(*this, watched, static_cast<QMouseEvent&>(*event), byDefault);
        case QEvent::Wheel:
            return DispatchWheel(*this, watched, static_cast<QWheelEvent&>(*event), byDefault);
        case QEvent::Leave:
            return deliver(WM_MOUSELEAVE, 0, 0);
        case QEvent::Paint:
            return deliver(WM_PAINT, 0, 0);
        case QEvent::Resize:
            return DispatchSize(watched, event, byDefault);
        case QEvent::Move:
            return deliver(WM_MOVE, 0, Packed(watched->pos()));
        case QEvent::Show:
        case QEvent::Hide:
            return deliver(WM_SHOWWINDOW, event->type() == QEvent::Show, 0);
        case QEvent::EnabledChange:
            return deliver(WM_ENABLE, watched->isEnabled(), 0);
        case QEvent::Close:
            event->ignore();  // the handler ends the window, or keeps it
            Guarded([this] { Deliver(WM_CLOSE, 0, 0); });
            return true;
        default:
            return byDefault();
    }
}

LRESULT WindowHandle::DefaultHandling(UINT message, WPARAM wParam, LPARAM lParam) {
    MessageInHand* inHand = MessageInHand::Innermost();
    if (inHand && inHand->window == this && inHand->message == message && inHand->byDefault) {
        if (!inHand->ran) {
            inHand->ran = true;
            inHand->taken = (*inHand->byDefault)();
        }
        return 0;
    }
    LRESULT result = 0;
    if (answers && answers(message, wParam, lParam, result)) return result;
    switch (message) {
        case WM_SETTEXT:
            SetText(QString::fromUtf16(reinterpret_cast<LPCWSTR>(lParam)));
            return TRUE;
        case WM_KEYDOWN:
            SynthesizeKey(*this, static_cast<UINT>(wParam));
            return 0;
        case WM_CHAR:
            SynthesizeCharacter(*this, static_cast<char16_t>(wParam));
            return 0;
        case WM_SETFOCUS:
            if (windowClass.setFocusCode) NotifyCommand(windowClass.setFocusCode);
            return 0;
        case WM_KILLFOCUS:
            if (windowClass.killFocusCode) NotifyCommand(windowClass.killFocusCode);
            return 0;
        case WM_CLOSE:
            if (!foreign) Destroy();
            return 0;
        default:
            return 0;
    }
}
