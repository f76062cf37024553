// Appending lines to the log.
#include "host/Log.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <cstdio>

namespace host {

Log::Log(const QString& fileName, bool toStderr) : file(fileName), toStderr(toStderr) {
    if (fileName.isEmpty()) return;
    QDir().mkpath(QFileInfo(fileName).path());
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return;
    const QString reason = QStringLiteral("log %1: %2; its lines go to stderr\n");
    WriteToStderr(reason.arg(fileName, file.errorString()).toUtf8());
    this->toStderr = true;
}

void Log::Write(const QString& text, const QString& drawing) {
    QString line = text;
    line.replace(u'\r', QLatin1String("\\r")).replace(u'\n', QLatin1String("\\n"));
    if (!drawing.isEmpty()) line.prepend(u'[' + drawing + QLatin1String("] "));

    const QByteArray bytes = line.toUtf8() + '\n';
    const QByteArray time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toLatin1();
    std::lock_guard lock(mutex);
    if (file.isOpen()) file.write(time + ' ' + bytes);
    if (toStderr) WriteToStderr(bytes);
}

void Log::WriteToStderr(const QByteArray& line) {
    std::fwrite(line.constData(), 1, line.size(), stderr);
}

}  // namespace host
