// Long work on a second thread, while the window lives on behind a bar.
#pragma once

#include <QProgressDialog>
#include <functional>

namespace desktop {

constexpr qint64 kLargeFile = 2 << 20;  // bytes; smaller files are there at once

// Of no known length at first. The window behind it takes no input.
class WaitBar : public QProgressDialog {
  public:
    WaitBar(QWidget* window, const QString& title, const QString& doing);
};

// Runs the work on a second thread until it is done or the bar cancelled. False for the latter: the
// work goes on, and what it holds ends on this thread then. What it throws is thrown here.
bool RunBehindBar(QProgressDialog& bar, std::function<void()> work);

}  // namespace desktop
