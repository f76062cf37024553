// Translating a saved drawing with the command line program.
#pragma once

#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <functional>

#include "apps/ui/PageChooser.h"

namespace desktop {

struct BatchOptions {
    QString drawing, output, database;
    QString from, to;     // keys of languages
    ui::PageNames pages;  // none: all
    bool texts = true, attributes = true;
    bool record = false;
};

QStringList ArgumentsOf(const BatchOptions& options);  // of kelvara

struct BatchOutcome {
    bool done = false;
    QString failure;     // one line, empty when done or cancelled
    QJsonObject report;  // as kelvara prints it
};

// One run of kelvara, which stands beside this program. Whatever happens to it, the output is whole
// or as it was before.
class BatchRun : public QObject {
  public:
    explicit BatchRun(QObject* parent);
    ~BatchRun() override;  // ends the run

    void Start(const BatchOptions& options);
    void Cancel();
    bool IsRunning() const { return process.state() != QProcess::NotRunning; }

    std::function<void(const QString& phase, int percent)> onProgress;
    std::function<void(const BatchOutcome&)> onEnd;

  private:
    void ReadMessages();
    void End();

    QProcess process;
    QString messages;  // the line that is being written
    QString last;      // that was written whole
    bool cancelled = false;
};

}  // namespace desktop
