// WindowHandle: a window of the layer and the widget that shows it.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/window/CWnd.h"

// How windows of a class are made: one static WindowClassEntry for each, beside the widget.
struct WindowClass {
    LPCWSTR name;  // compared without regard to case
    // The widget, a child of parent or with null a window of its own. Signals are connected with
    // the handle as context, so that they end with it.
    QWidget* (*make)(WindowHandle& handle, QWidget* parent);
    // What CWnd::FromHandle gives for a window without an object of its own.
    std::unique_ptr<CWnd> (*makeObject)();
    // What the parent is told when the window gets or loses the focus; 0 for nothing.
    UINT setFocusCode = 0, killFocusCode = 0;
};

class WindowClassEntry {
  public:
    explicit WindowClassEntry(const WindowClass& windowClass);
};

template <class T>
std::unique_ptr<CWnd> MakeObject() {
    return std::make_unique<T>();
}

// Lives from creation to the end of WM_NCDESTROY; the memory stays until the event loop comes
// around, so that code below a handler that destroyed the window still finds it (alive is false).
//
// The widget's events arrive through an event filter, become messages, and the default handling of
// the message gives the event to the widget. Widgets with a viewport override viewportEvent and
// call DispatchEvent themselves.
class WindowHandle final : public QObject {
  public:
    WindowHandle(const WindowClass& windowClass, HWND parent, UINT id, DWORD style);
    ~WindowHandle() override;

    // Makes the widget, ties the object (null: none) and sends WM_CREATE; null when that answers
    // -1. The rectangle is in pixels of the parent's client area, or of the screen.
    static HWND Create(LPCWSTR className, CWnd* object, LPCWSTR text, DWORD style, const RECT& rect,
                       HWND parent, UINT id);
    // The window of a widget that the layer did not make; the layer never deletes such a widget.
    static HWND OfForeignWidget(QWidget* widget);

    LRESULT Deliver(UINT message, WPARAM wParam, LPARAM lParam);
    // What the class of the window does with a message that no handler kept. Run at most once for
    // the event that a message came from.
    LRESULT DefaultHandling(UINT message, WPARAM wParam, LPARAM lParam);
    // Whether the event was taken. defaultHandling gives it to the widget; watched is the widget or
    // its viewport.
    bool DispatchEvent(QWidget* watched, QEvent* event,
                       const std::function<bool()>& defaultHandling);
    // As Deliver, for a message made of an event that the default handling gives to the widget.
    // Whether a handler kept it from there goes into kept.
    LRESULT DeliverEvent(UINT message, WPARAM wParam, LPARAM lParam,
                         const std::function<bool()>& defaultHandling, bool* kept = nullptr);
    // The keys of that widget count as the window's; the default handling lets them pass.
    void WatchKeysOf(QWidget* other);

    // WM_COMMAND or WM_NOTIFY to the parent, as a control sends them. For calls from the toolkit:
    // exceptions are kept for the modal loop.
    void NotifyCommand(UINT code);
    LRESULT Notify(NMHDR& header);  // fills hwndFrom and idFrom

    void Destroy();
    void Move(const QRect& rect);  // with the frame, of a window that is no child

    bool HasStyle(DWORD bits) const { return (style & bits) == bits; }
    QString Text() const;
    void SetText(const QString& text);

    const WindowClass& windowClass;
    QPointer<QWidget> widget;
    QPointer<QWidget> client;  // where children live and the mouse is seen; mostly the widget
    HWND parent;               // the owner, of a window that is no child
    std::vector<HWND> children;
    CWnd* object = nullptr;  // tied to this window
    std::unique_ptr<CWnd> temporary;
    UINT id;
    DWORD style;
    CFont font;
    HWND lastFocus = nullptr;  // of a window with controls: the tab stop that had the focus last
    bool foreign = false;
    bool alive = true;
    bool destroying = false;
    // A control's own answers to messages; false leaves the message to the common ones.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)> answers;
    // Replace the text of the widget where it has none that the layer knows.
    std::function<QString()> textOf;
    std::function<void(const QString&)> setTextOf;
    // Brings a rectangle to what the window takes, as a closed combo box has a height of its own.
    std::function<QRect(const QRect&)> fitted;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Show(QWidget* made);  // ties the widget made to this handle
    void SendDestroy();
    void SendNcDestroy();
    void ReleaseFocus();
    void Gone();
    bool DispatchSize(QWidget* watched, QEvent* event, const std::function<bool()>& byDefault);
    bool HoldSize();
    bool FilterWatchedKeys(QObject& watched, QEvent& event);

    std::exception_ptr destroyFailure;
    int programMoves = 0;  // a change of size under way that the program asked for
    QRect lastFrame;       // where the window stood at its last size
};

WindowHandle* HandleOf(const QWidget* widget);      // the window shown by that very widget; null
WindowHandle* HandleAround(const QWidget* widget);  // or by the nearest one around it
QWidget* WidgetOf(HWND window);                     // null for null
QWidget* WidgetOf(const CWnd* window);
template <class T>
T* WidgetAs(const CWnd* window) {
    return qobject_cast<T*>(WidgetOf(window));
}

// Runs what may throw under a function of the toolkit: an exception is kept, ends the innermost
// modal loop and is thrown from its DoModal.
void Guarded(const std::function<void()>& work);
// Throws what Guarded kept while a call into the toolkit was on its way.
void ThrowKept();

QString ToQString(const CString& text);
CString ToCString(const QString& text);
QRect ToQRect(const RECT& rect);
CRect ToCRect(const QRect& rect);
QFont ToQFont(const CFont& font);
CFont ToCFont(const QFont& font);
QColor ToQColor(COLORREF color);
