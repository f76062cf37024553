// Names, order of writing and reading back.
#include "apps/desktop/recovery/RecoveryFiles.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <exception>

#include "platform/drawing/dxf/Group.h"

namespace desktop {

namespace {

// 64-bit numbers are no numbers of JSON.
QString IdentityText(const dxf::FileIdentity& identity) {
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(identity.device)
        .arg(identity.inode)
        .arg(identity.size)
        .arg(identity.modifiedSeconds)
        .arg(identity.modifiedNanoseconds);
}

std::optional<dxf::FileIdentity> IdentityOf(const QString& text) {
    const QStringList parts = text.split(u' ');
    if (parts.size() != 5) return std::nullopt;
    return dxf::FileIdentity{parts[0].toULongLong(), parts[1].toULongLong(), parts[2].toULongLong(),
                             parts[3].toLongLong(), parts[4].toLongLong()};
}

// Only drawings that can be edited have copies: one that cannot be is cut or damaged.
OdDbDatabasePtr ReadWhole(const QString& name) {
    OdDbDatabasePtr drawing = OdDbDatabase::readFile(name.toStdString());
    if (!drawing->isReadOnly()) return drawing;
    std::string why;
    for (const dxf::Finding& finding : drawing->store().Findings())
        if (finding.severity == dxf::Finding::Severity::ReadOnly) why = finding.text;
    throw dxf::Error(name.toStdString() + ": the copy is damaged: " + why);
}

void Replace(const QString& name, std::string_view bytes) {
    dxf::ReplaceFile(name.toStdString(), [&](const dxf::Sink& file) { file(bytes); }, {});
}

}  // namespace

QList<int> RecoveryFiles::NumbersIn(const QString& folder) {
    QList<int> numbers;
    for (const QString& name : QDir(folder).entryList({"*.json"}, QDir::Files))
        numbers << QFileInfo(name).completeBaseName().toInt();
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QString RecoveryFiles::DescriptionName() const {
    return QStringLiteral("%1/%2.json").arg(folder).arg(number);
}

QString RecoveryFiles::CopyName(int generation) const {
    return QStringLiteral("%1/%2-%3.dxf").arg(folder).arg(number).arg(generation);
}

QList<int> RecoveryFiles::Generations() const {
    QList<int> generations;
    const QString pattern = QStringLiteral("%1-*.dxf").arg(number);
    for (const QString& name : QDir(folder).entryList({pattern}, QDir::Files))
        generations << QFileInfo(name).completeBaseName().section(u'-', 1).toInt();
    std::sort(generations.begin(), generations.end(), std::greater<>());
    return generations;
}

void RecoveryFiles::Write(const Description& description) const {
    // A path is bytes of no known code page.
    const QByteArray path = QByteArray::fromStdString(description.fileName).toPercentEncoding("/");
    QJsonObject object{{"drawing", QString::fromLatin1(path)}};
    if (description.met) object["met"] = IdentityText(*description.met);
    const QByteArray bytes = QJsonDocument(object).toJson();
    Replace(DescriptionName(), {bytes.data(), size_t(bytes.size())});
}

Description RecoveryFiles::Read() const {
    QFile file(DescriptionName());
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    const QByteArray path = object["drawing"].toString().toLatin1();
    return {QByteArray::fromPercentEncoding(path).toStdString(),
            IdentityOf(object["met"].toString())};
}

void RecoveryFiles::WriteCopy(std::string_view bytes) const {
    const QList<int> older = Generations();
    const int generation = older.isEmpty() ? 1 : older.first() + 1;
    Replace(CopyName(generation), bytes);
    for (const int old : older) QFile::remove(CopyName(old));
}

OdDbDatabasePtr RecoveryFiles::ReadCopy() const {
    std::exception_ptr failure;
    for (const int generation : Generations()) {
        try {
            return ReadWhole(CopyName(generation));
        } catch (...) {
            if (!failure) failure = std::current_exception();
        }
    }
    if (failure) std::rethrow_exception(failure);
    return {};
}

void RecoveryFiles::TakeFrom(const RecoveryFiles& other) const {
    Write(other.Read());
    for (const int generation : other.Generations())
        QFile::rename(other.CopyName(generation), CopyName(generation));
    other.Remove();
}

qint64 RecoveryFiles::Size() const {
    qint64 size = 0;
    for (const int generation : Generations()) size += QFile(CopyName(generation)).size();
    return size;
}

void RecoveryFiles::Remove() const {
    for (const int generation : Generations()) QFile::remove(CopyName(generation));
    QFile::remove(DescriptionName());
}

}  // namespace desktop
