// Copies by the clock, and opening what was left.
#include "apps/desktop/RecoveryKeeper.h"

#include <QFileInfo>

#include "apps/desktop/Guard.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/RecoveryDialog.h"
#include "apps/desktop/Texts.h"
#include "apps/painter/ListBuilder.h"

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

void RecoveryKeeper::Tick() { recovery.Tick(desktop.Host().Documents().Documents()); }

void RecoveryKeeper::Offer(MainWindow& window) {
    std::vector<LeftWork> left = recovery.Left();
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
    auto list = std::make_shared<const painter::DisplayList>(
        std::move(*painter::BuildDisplayList(*work.drawing)));
    window.GetFiles().onLoaded(work.drawing, QString::fromStdString(work.fileName),
                               std::move(list));
    recovery.Adopt(work, *desktop.Active());
}

}  // namespace desktop
