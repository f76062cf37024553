// Messages on their way: what the default handling belongs to, and exceptions that must not pass
// the toolkit.
#pragma once

#include <QEventLoop>
#include <exception>
#include <functional>

#include "platform/window/qt/WindowHandle.h"

// The message that a window has in hand; they nest, the latest is the innermost.
class MessageInHand {
  public:
    // With a null window: no message is in hand.
    MessageInHand(WindowHandle* window, UINT message, WPARAM wParam, LPARAM lParam);
    MessageInHand(const MessageInHand&) = delete;
    MessageInHand& operator=(const MessageInHand&) = delete;
    ~MessageInHand();

    static MessageInHand* Innermost();

    WindowHandle* window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    const std::function<bool()>* byDefault = nullptr;  // gives the event to the widget
    bool ran = false;
    bool taken = false;  // what the widget said

  private:
    MessageInHand* outer;
};

// A loop of DoModal. Guarded calls below it keep their exception for it.
class ModalLoop {
  public:
    // Runs begin, then the loop until End. Throws what a handler threw.
    void Run(const std::function<void()>& begin);
    void End();

  private:
    QEventLoop loop;
    bool over = false;
};
