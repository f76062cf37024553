// Windows from creation to their end.
#include "platform/window/qt/WindowHandle.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/window/AfxWin.h"
#include "platform/window/qt/Dispatch.h"
#include "platform/window/qt/Focus.h"

namespace {

std::unordered_map<std::u16string, WindowClass>& Classes() {
    static std::unordered_map<std::u16string, WindowClass> classes;
    return classes;
}

std::u16string ClassKey(LPCWSTR name) { return CString(name).MakeUpper().Text(); }

QWidget* MakePlain(WindowHandle&, QWidget* parent) { return new QWidget(parent); }
const WindowClass PLAIN{u"", &MakePlain, &MakeObject<CWnd>};

const WindowClass& ClassOf(LPCWSTR name) {
    const auto found = Classes().find(ClassKey(name));
    return found == Classes().end() ? PLAIN : found->second;
}

std::unordered_set<const WindowHandle*>& Alive() {
    static std::unordered_set<const WindowHandle*> handles;
    return handles;
}

std::unordered_map<const QWidget*, WindowHandle*>& Shown() {
    static std::unordered_map<const QWidget*, WindowHandle*> handles;
    return handles;
}

}  // namespace

WindowClassEntry::WindowClassEntry(const WindowClass& windowClass) {
    Classes().emplace(ClassKey(windowClass.name), windowClass);
}

WindowHandle::WindowHandle(const WindowClass& windowClass, HWND parent, UINT id, DWORD style)
    : windowClass(windowClass), parent(parent), id(id), style(style) {
    Alive().insert(this);
    if (parent) parent->children.push_back(this);
    WatchFocus();
}

WindowHandle::~WindowHandle() = default;

void WindowHandle::Show(QWidget* made) {
    widget = made;
    if (!client) client = made;
    Shown()[made] = this;
    made->installEventFilter(this);
    connect(made, &QObject::destroyed, this, [this, made] {
        Shown().erase(made);
        Guarded([this] { Destroy(); });
    });
}

HWND WindowHandle::Create(LPCWSTR className, CWnd* object, LPCWSTR text, DWORD style,
                          const RECT& rect, HWND parent, UINT id) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        throw std::logic_error(
            "a program without windows cannot show a dialog; do the work with "
            "kelvara, or in a program with windows");
    }
    const bool child = (style & WS_CHILD) != 0;
    auto* handle = new WindowHandle(ClassOf(className), parent, id, style);
    if (object) {
        handle->object = object;
        object->m_hWnd = handle;
        object->PreSubclassWindow();
    }
    QWidget* around = parent ? parent->client.data() : nullptr;
    handle->Show(handle->windowClass.make(*handle, around));
    handle->Move(ToQRect(rect));
    handle->SetText(QString::fromUtf16(text ? text : u""));
    if (style & WS_DISABLED) handle->widget->setEnabled(false);

    CREATESTRUCT create{
        text, style, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, parent};
    if (handle->Deliver(WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        handle->Destroy();
        return nullptr;
    }
    if (handle->alive && child && (style & WS_VISIBLE)) handle->widget->show();
    return handle->alive ? handle : nullptr;
}

HWND WindowHandle::OfForeignWidget(QWidget* foreignWidget) {
    if (!foreignWidget) return nullptr;
    if (WindowHandle* known = HandleOf(foreignWidget)) return known;
    auto* handle = new WindowHandle(PLAIN, nullptr, 0, WS_VISIBLE);
    handle->foreign = true;
    handle->Show(foreignWidget);
    return handle;
}

LRESULT WindowHandle::Deliver(UINT message, WPARAM wParam, LPARAM lParam) {
    MessageInHand inHand(this, message, wParam, lParam);
    if (object) return object->WindowProc(message, wParam, lParam);
    // Notifications are routed also by a window without an object: its children may have theirs.
    if (message == WM_COMMAND || message == WM_NOTIFY || message == WM_DRAWITEM)
        return CWnd::FromHandle(this)->WindowProc(message, wParam, lParam);
    return DefaultHandling(message, wParam, lParam);
}

LRESULT WindowHandle::DeliverEvent(UINT message, WPARAM wParam, LPARAM lParam,
                                   const std::function<bool()>& defaultHandling, bool* kept) {
    MessageInHand inHand(this, message, wParam, lParam);
    inHand.byDefault = &defaultHandling;
    const LRESULT result = object ? object->WindowProc(message, wParam, lParam)
                                  : DefaultHandling(message, wParam, lParam);
    if (kept) *kept = !inHand.ran;
    return result;
}

void WindowHandle::NotifyCommand(UINT code) {
    Guarded([this, code] {
        if (alive && parent)
            parent->Deliver(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(this));
    });
}

LRESULT WindowHandle::Notify(NMHDR& header) {
    header.hwndFrom = this;
    header.idFrom = id;
    LRESULT result = 0;
    Guarded([&] {
        if (alive && parent)
            result = parent->Deliver(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
    });
    return result;
}

bool WindowHandle::event(QEvent* event) {
    if (auto* posted = PostedMessage::From(event)) {
        if (alive) Guarded([&] { Deliver(posted->message, posted->wParam, posted->lParam); });
        return true;
    }
    return QObject::event(event);
}

// The end of a window: it gives up the focus, hears WM_DESTROY before its children do and
// WM_NCDESTROY after them. An exception of a handler waits until everything is gone.
void WindowHandle::Destroy() {
    if (!alive || destroying) return;
    ReleaseFocus();
    if (!alive || destroying) return;  // the loss of the focus ended the window already
    destroying = true;
    if (widget && !foreign) widget->hide();
    SendDestroy();
    SendNcDestroy();
    if (destroyFailure) std::rethrow_exception(std::exchange(destroyFailure, nullptr));
}

void WindowHandle::ReleaseFocus() {
    QWidget* focus = QApplication::focusWidget();
    if (!widget || !focus || foreign || HandleAround(focus) == nullptr) return;
    if (focus != widget && !widget->isAncestorOf(focus)) return;
    if (HasStyle(WS_CHILD) && widget->parentWidget())
        widget->parentWidget()->setFocus(Qt::OtherFocusReason);
    else
        focus->clearFocus();
}

void WindowHandle::SendDestroy() {
    destroying = true;
    try {
        Deliver(WM_DESTROY, 0, 0);
    } catch (...) {
        destroyFailure = std::current_exception();
    }
    const auto those = children;
    for (HWND child : those)
        if (Alive().contains(child)) child->SendDestroy();
}

void WindowHandle::SendNcDestroy() {
    const auto those = children;
    for (HWND child : those) {
        if (!Alive().contains(child)) continue;
        child->SendNcDestroy();
        if (!destroyFailure) destroyFailure = std::exchange(child->destroyFailure, nullptr);
    }
    try {
        Deliver(WM_NCDESTROY, 0, 0);
    } catch (...) {
        if (!destroyFailure) destroyFailure = std::current_exception();
    }
    Gone();
}

void WindowHandle::Gone() {
    alive = false;
    if (object) object->m_hWnd = nullptr;
    object = nullptr;
    if (temporary) temporary->m_hWnd = nullptr;
    Alive().erase(this);
    if (parent && Alive().contains(parent)) std::erase(parent->children, this);
    if (widget && !foreign) widget->deleteLater();
    deleteLater();
}

QString WindowHandle::Text() const {
    if (textOf) return textOf();
    return widget ? widget->windowTitle() : QString();
}

void WindowHandle::SetText(const QString& text) {
    if (setTextOf)
        setTextOf(text);
    else if (widget)
        widget->setWindowTitle(text);
}

void WindowHandle::WatchKeysOf(QWidget* other) { other->installEventFilter(this); }

WindowHandle* HandleOf(const QWidget* widget) {
    const auto found = Shown().find(widget);
    return found == Shown().end() || !found->second->alive ? nullptr : found->second;
}

WindowHandle* HandleAround(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget())
        if (WindowHandle* handle = HandleOf(widget)) return handle;
    return nullptr;
}

QWidget* WidgetOf(HWND window) { return IsWindow(window) ? window->widget.data() : nullptr; }
QWidget* WidgetOf(const CWnd* window) { return window ? WidgetOf(window->GetSafeHwnd()) : nullptr; }

BOOL IsWindow(HWND window) { return Alive().contains(window); }

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindow(window) ? window->Deliver(message, wParam, lParam) : 0;
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow(window)) return FALSE;
    QCoreApplication::postEvent(window, new PostedMessage(message, wParam, lParam));
    return TRUE;
}

CWnd* CWnd::FromHandlePermanent(HWND window) { return IsWindow(window) ? window->object : nullptr; }

CWnd* CWnd::FromHandle(HWND window) {
    if (!IsWindow(window)) {
        // Compared, never followed: it may be the toolkit's number of a widget.
        QWidget* widget = QWidget::find(static_cast<WId>(reinterpret_cast<uintptr_t>(window)));
        if (!window || !widget) return nullptr;
        window = WindowHandle::OfForeignWidget(widget);
    }
    if (window->object) return window->object;
    if (!window->temporary) {
        window->temporary = window->windowClass.makeObject();
        window->temporary->m_hWnd = window;
    }
    return window->temporary.get();
}
