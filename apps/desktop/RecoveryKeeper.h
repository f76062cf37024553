// Recovery in the running program: a timer, the documents' comings and goings, and the offer at the
// start.
#pragma once

#include <QTimer>

#include "apps/desktop/Desktop.h"
#include "apps/desktop/recovery/Recovery.h"

namespace desktop {

class MainWindow;

// The desktop must outlive it.
class RecoveryKeeper : public DocumentListener {
  public:
    RecoveryKeeper(Desktop& desktop, RecoveryOptions options);
    ~RecoveryKeeper();

    // Beside the settings; empty for the user's.
    static QString FolderFor(const QString& settingsFile);

    // Asks what is to become of the work that earlier programs left, if they left some.
    void Offer(MainWindow& window);
    void Tick();  // what the timer does
    void WaitForDisk() { recovery.WaitForDisk(); }

    void Saved(host::Document& document) override { recovery.Forget(document); }
    void Closing(host::Document& document) override { recovery.Forget(document); }

  private:
    std::vector<LeftWork> JudgeFound(std::vector<LeftFiles> found, MainWindow& window);
    void Open(const LeftWork& work, MainWindow& window);

    Desktop& desktop;
    Recovery recovery;
    QTimer timer;
};

}  // namespace desktop
