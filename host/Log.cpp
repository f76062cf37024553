// Appending lines to the log.
#include "host/Log.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>
#include <utility>

namespace host {

Log::Log(const QString& fileName, bool toStderr, Opens opens) : file(fileName), toStderr(toStderr) {
    if (opens == Opens::AtOnce) Open();
}

QString Log::DefaultFileName() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           "/kelvara/kelvara.log";
}

void Log::Open() {
    if (file.fileName().isEmpty() || std::exchange(opened, true)) return;
    QDir().mkpath(QFileInfo(file).path());
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return;
    const QString reason = QStringLiteral("log %1: %2; its lines go to stderr\n");
    WriteToStderr(reason.arg(file.fileName(), file.errorString()).toUtf8());
    this->toStderr = true;
}

void Log::Write(const QString& text, const QString& drawing) {
    QString line = text;
    line.replace(u'\r', QLatin1String("\\r")).replace(u'\n', QLatin1String("\\n"));
    if (!drawing.isEmpty()) line.prepend(u'[' + drawing + QLatin1String("] "));

    const QByteArray bytes = line.toUtf8() + '\n';
    const QByteArray time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toLatin1();
    std::lock_guard lock(mutex);
    Open();
    if (file.isOpen()) file.write(time + ' ' + bytes);
    if (toStderr) WriteToStderr(bytes);
}

void Log::WriteToStderr(const QByteArray& line) {
    std::fwrite(line.constData(), 1, line.size(), stderr);
}

}  // namespace host
