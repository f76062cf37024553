// Running the converter in a folder of its own, and judging what it left.
#include "host/DwgImport.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "host/Error.h"
#include "platform/drawing/OdError.h"

namespace host {

namespace {

Error Failure(const std::string& drawing, const QString& reason) {
    return Error(QString::fromStdString(drawing) +
                 ": this DWG drawing cannot be converted: " + reason);
}

// The last line that the converter printed says most about its end.
QString LastLine(QProcess& process) {
    const QString printed =
        QString::fromLocal8Bit(process.readAllStandardError() + process.readAllStandardOutput());
    const QStringList lines = printed.split(u'\n', Qt::SkipEmptyParts);
    return lines.isEmpty() ? QStringLiteral("it printed nothing") : lines.last().trimmed();
}

QStringList Filled(QStringList command, const QString& in, const QString& out) {
    command.replaceInStrings(QStringLiteral("{in}"), in);
    command.replaceInStrings(QStringLiteral("{out}"), out);
    return command;
}

void Convert(const std::string& drawing, QStringList command, std::chrono::milliseconds time,
             const QString& folder) {
    const QString program = command.takeFirst();
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, command);
    if (!process.waitForStarted())
        throw Failure(drawing, "the converter " + program + " does not start: " +
                                   process.errorString() + "; check it in the settings");
    if (!process.waitForFinished(int(time.count()))) {
        process.kill();
        process.waitForFinished();
        throw Failure(drawing, QStringLiteral("the converter %1 took longer than %2 seconds")
                                   .arg(program)
                                   .arg(time.count() / 1000));
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw Failure(drawing, "the converter " + program + " failed: " + LastLine(process));
}

// A converter that ends well may have written nothing, or half a drawing.
OdDbDatabasePtr ReadConverted(const std::string& drawing, const QString& out) {
    if (!QFile::exists(out)) throw Failure(drawing, "the converter wrote no drawing");
    OdDbDatabasePtr converted;
    try {
        converted = OdDbDatabase::readFile(out.toStdString());
    } catch (const OdError& error) {
        const QString reason = QString::fromStdU16String(error.description().text());
        throw Failure(drawing, "the converter wrote no DXF drawing: " + reason);
    }
    const dxf::Store& store = converted->store();
    const bool hasEnd = store.At(store.FileCount() - 1).type == dxf::RecordType::Eof;
    if (converted->isReadOnly() || !hasEnd)
        throw Failure(drawing, "the converter wrote half a drawing");
    return converted;
}

}  // namespace

bool IsDwg(const std::string& nativePath) {
    char begin[6];
    std::ifstream file(nativePath, std::ios::binary);
    if (!file.read(begin, sizeof begin)) return false;
    bool isVersion = false;
    QByteArray(begin + 2, 4).toDouble(&isVersion);
    return begin[0] == 'A' && begin[1] == 'C' && isVersion;
}

OdDbDatabasePtr ImportDwg(const std::string& nativePath, const DwgConverter& converter) {
    if (converter.command.isEmpty())
        throw Failure(nativePath, "the settings name no converter; save it as DXF, or name one");
    const QTemporaryDir folder;
    const QString in = folder.filePath("drawing.dwg"), out = folder.filePath("drawing.dxf");
    std::error_code failed;
    if (!folder.isValid() || !std::filesystem::copy_file(nativePath, in.toStdString(), failed))
        throw Failure(nativePath, "it cannot be copied to " + folder.path());
    Convert(nativePath, Filled(converter.command, in, out), converter.timeLimit, folder.path());
    OdDbDatabasePtr converted = ReadConverted(nativePath, out);
    converted->standFor({}, std::nullopt);
    return converted;
}

}  // namespace host
