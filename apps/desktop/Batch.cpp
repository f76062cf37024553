// kelvara as a process: its arguments, its progress bar, its report.
#include "apps/desktop/Batch.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QRegularExpression>

#include "apps/desktop/Texts.h"

namespace desktop {

QStringList ArgumentsOf(const BatchOptions& options) {
    QStringList arguments{"translate",  options.drawing,  "--from", options.from,
                          "--to",       options.to,       "-o",     options.output,
                          "--database", options.database, "--json", "--progress"};
    QStringList pages;
    for (const std::u16string& page : options.pages) pages << QString::fromStdU16String(page);
    if (!pages.isEmpty()) arguments << "--pages" << pages.join(',');
    if (!options.texts) arguments << "--no-texts";
    if (!options.attributes) arguments << "--no-attributes";
    if (options.record) arguments << "--record";
    return arguments;
}

BatchRun::BatchRun(QObject* parent) : QObject(parent) {
    connect(&process, &QProcess::readyReadStandardError, this, [this] { ReadMessages(); });
    connect(&process, &QProcess::finished, this, [this] { End(); });
    connect(&process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) End();
    });
}

BatchRun::~BatchRun() {
    process.disconnect(this);
    Cancel();
    process.waitForFinished();
}

void BatchRun::Start(const BatchOptions& options) {
    cancelled = false;
    messages.clear();
    last.clear();
    process.start(QCoreApplication::applicationDirPath() + "/kelvara", ArgumentsOf(options));
    process.closeWriteChannel();
}

void BatchRun::Cancel() {
    cancelled = true;
    process.terminate();
}

// The bar is drawn over and over in one line; messages stand in lines of their own.
void BatchRun::ReadMessages() {
    static const QRegularExpression bar(R"(([a-z ]+) \[[#.]*\] +(\d+) %)");
    static const QRegularExpression ends(QStringLiteral("[\r\n]|\x1b\\[K"));
    messages += QString::fromUtf8(process.readAllStandardError());
    QStringList lines = messages.split(ends);
    for (const QString& line : lines) {
        const auto match = bar.match(line);
        if (match.hasMatch()) {
            if (onProgress) onProgress(match.captured(1), match.captured(2).toInt());
        } else if (!line.isEmpty() && &line != &lines.back()) {
            last = line;
        }
    }
    messages = lines.back();
}

void BatchRun::End() {
    ReadMessages();
    BatchOutcome outcome;
    outcome.done = process.error() != QProcess::FailedToStart &&
                   process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    outcome.report = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    if (!outcome.done && !cancelled) {
        outcome.failure = last.isEmpty() ? messages.trimmed() : last;
        if (outcome.failure.isEmpty())
            outcome.failure = process.program() + ": " + process.errorString();
    }
    if (onEnd) onEnd(outcome);
}

}  // namespace desktop
