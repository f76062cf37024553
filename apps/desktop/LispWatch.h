// Keeps the windows alive while a LISP program runs, and lets the user end it.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace desktop {

// Programs run on the thread of the windows. While one does, input reaches nothing but the button
// that ends it; Escape ends it too. Dialogs that the program shows are not concerned.
class LispWatch : public QObject {
  public:
    LispWatch() = default;

    // The time of one evaluation.
    class Running {
      public:
        explicit Running(LispWatch& watch);
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

      private:
        LispWatch& watch;
    };

    void Look();                                          // from the program that runs, often
    void SetButton(QWidget* widget) { button = widget; }  // not owned

    std::function<void()> onInterrupt;
    std::function<void(bool)> onRunning;  // a program takes long; it has ended

  protected:
    bool eventFilter(QObject* target, QEvent* event) override;

  private:
    QPointer<QWidget> button;
    QElapsedTimer clock;
    int depth = 0;
    bool told = false, looking = false;
};

}  // namespace desktop
