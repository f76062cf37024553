// A thread, and an event loop that waits for it.
#include "apps/desktop/BehindBar.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThreadPool>
#include <memory>

#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

// Shared by both threads. The second one does the work and then has the main thread, where loop is
// used, end the loop.
struct Task {
    std::function<void()> work;
    std::exception_ptr failure;
    QEventLoop* loop = nullptr;
};

void Start(const std::shared_ptr<Task>& task) {
    QThreadPool::globalInstance()->start([task = task]() mutable {
        try {
            task->work();
        } catch (...) {
            task->failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [task = std::move(task)] {
                if (task->loop) task->loop->quit();
            },
            Qt::QueuedConnection);
    });
}

}  // namespace

WaitBar::WaitBar(QWidget* window, const QString& title, const QString& doing)
    : QProgressDialog(doing, Say("Cancel"), 0, 0, window) {
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setAutoReset(false);
    setMinimumWidth(360);
    show();
}

bool RunBehindBar(QProgressDialog& bar, std::function<void()> work) {
    QEventLoop loop;
    const auto task = std::make_shared<Task>(Task{std::move(work), {}, &loop});
    Start(task);
    const auto cancel =
        QObject::connect(&bar, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    loop.exec();
    task->loop = nullptr;
    QObject::disconnect(cancel);
    if (bar.wasCanceled()) return false;
    if (task->failure) std::rethrow_exception(task->failure);
    return true;
}

}  // namespace desktop
