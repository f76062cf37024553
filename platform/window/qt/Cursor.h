// The cursor that a handler sets while the mouse moves over a widget.
#pragma once

#include <QPointer>
#include <QWidget>

// While it lives SetCursor means that widget; at its end the widget gets its own cursor back unless
// a handler has set one. With null nothing happens.
class CursorScope {
  public:
    explicit CursorScope(QWidget* widget);
    CursorScope(const CursorScope&) = delete;
    CursorScope& operator=(const CursorScope&) = delete;
    ~CursorScope();

    QPointer<QWidget> widget;
    bool set = false;

  private:
    CursorScope* outer;
};
