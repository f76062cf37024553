// The message in hand, kept exceptions and modal loops.
#include "platform/window/qt/Dispatch.h"

#include <QDebug>
#include <utility>

namespace {

MessageInHand* innermostMessage = nullptr;

struct GuardState {
    ModalLoop* loop = nullptr;  // the innermost one
    int depth = 0;              // Guarded calls since it began
    std::exception_ptr kept;
};
GuardState guard;

// What becomes of an exception outside modal dialogs: the toolkit's loop is the last to handle it.
void Report(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        qCritical("A window's handler failed outside a modal dialog: %s", error.what());
    } catch (...) {
        qCritical("A window's handler failed outside a modal dialog");
    }
}

void LeaveGuard() {
    if (--guard.depth > 0 || !guard.kept) return;
    if (guard.loop)
        guard.loop->End();
    else
        Report(std::exchange(guard.kept, nullptr));
}

}  // namespace

MessageInHand::MessageInHand(WindowHandle* window, UINT message, WPARAM wParam, LPARAM lParam)
    : window(window),
      message(message),
      wParam(wParam),
      lParam(lParam),
      outer(std::exchange(innermostMessage, this)) {}

MessageInHand::~MessageInHand() { innermostMessage = outer; }

MessageInHand* MessageInHand::Innermost() { return innermostMessage; }

void Guarded(const std::function<void()>& work) {
    ++guard.depth;
    try {
        work();
    } catch (...) {
        if (!guard.kept) guard.kept = std::current_exception();
    }
    LeaveGuard();
}

void ThrowKept() {
    if (guard.kept) std::rethrow_exception(std::exchange(guard.kept, nullptr));
}

void ModalLoop::Run(const std::function<void()>& begin) {
    const GuardState outer = std::exchange(guard, GuardState{this, 0, nullptr});
    Guarded(begin);
    if (!over) loop.exec(QEventLoop::DialogExec);
    const auto failure = std::exchange(guard, outer).kept;
    if (failure) std::rethrow_exception(failure);
}

void ModalLoop::End() {
    over = true;
    loop.quit();
}
