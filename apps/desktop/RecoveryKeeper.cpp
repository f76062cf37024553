// Copies by the clock, and opening what was left.
#include "apps/desktop/RecoveryKeeper.h"

#include <QFileInfo>
#include <atomic>

#include "apps/desktop/BehindBar.h"
#include "apps/desktop/Guard.h"
#include "apps/desktop/Loading.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/RecoveryDialog.h"
#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

constexpr std::chrono::seconds kLook{5};  // how often it is looked whether an interval is over

RecoveryOptions WithLog(RecoveryOptions options, Desktop& desktop) {
    options.log = [&desktop](const QString& line) { desktop.Log(line); };
    return options;
}

}  // namespace

RecoveryKeeper::RecoveryKeeper(Desktop& desktop, RecoveryOptions options)
    : desktop(desktop), recovery(WithLog(std::move(options), desktop)) {
    desktop.Add(*this);
    QObject::connect(&timer, &QTimer::timeout, [this] { Tick(); });
    timer.start(kLook);
}

RecoveryKeeper::~RecoveryKeeper() { desktop.Remove(*this); }

QString RecoveryKeeper::FolderFor(const QString& settingsFile) {
    const QString file = settingsFile.isEmpty() ? host::Settings::DefaultFileName() : settingsFile;
    return QFileInfo(file).absolutePath() + "/recovery";
}

// Nothing when the user cancels: what is left is offered at the next start then.
std::vector<LeftWork> RecoveryKeeper::JudgeFound(std::vector<LeftFiles> found, MainWindow& window) {
    struct Judging {
        std::vector<LeftFiles> found;
        std::vector<LeftWork> works;
        std::atomic<bool> cancelled = false;
    };
    const auto judging = std::make_shared<Judging>();
    judging->found = std::move(found);
    const auto judge = [judging] {
        for (const LeftFiles& left : judging->found) {
            if (judging->cancelled) return;
            if (auto work = Judged(left)) judging->works.push_back(std::move(*work));
        }
    };
    qint64 size = 0;
    for (const LeftFiles& left : judging->found) size += left.files.Size();
    if (size < kLargeFile) {
        judge();
        return std::move(judging->works);
    }
    WaitBar bar(&window, Say("Unsaved work"), Say("Reading the unsaved work…"));
    judging->cancelled = !RunBehindBar(bar, judge);
    return judging->cancelled ? std::vector<LeftWork>() : std::move(judging->works);
}

void RecoveryKeeper::Tick() { recovery.Tick(desktop.Host().Documents().Documents()); }

void RecoveryKeeper::Offer(MainWindow& window) {
    const std::vector<LeftWork> left = JudgeFound(recovery.Found(), window);
    if (left.empty()) return;
    RecoveryDialog dialog(left, &window);
    dialog.onDiscard = [&](const LeftWork& work) { recovery.Discard(work); };
    if (dialog.exec() != QDialog::Accepted) return;
    for (const LeftWork* work : dialog.Chosen()) {
        Guarded(Say("Open %1").arg(QFileInfo(QString::fromStdString(work->fileName)).fileName()),
                [&] { Open(*work, window); });
    }
}

void RecoveryKeeper::Open(const LeftWork& work, MainWindow& window) {
    auto list = PrepareView(&window, *work.drawing, work.fileName);
    if (!list) return;
    window.GetFiles().onLoaded(work.drawing, QString::fromStdString(work.fileName),
                               std::move(list));
    recovery.Adopt(work, *desktop.Active());
}

}  // namespace desktop
