// Opening the database, and its errors in words.
#include "host/SqlConnection.h"

#include <QDir>
#include <QFileInfo>
#include <atomic>

#include "host/Error.h"
#include "host/Schema.h"

namespace host {

namespace {

struct Reason {
    int code;  // primary result code of SQLite
    const char* text;
};

constexpr Reason kReasons[] = {
    {5, "it is locked by another program; close that program or try again"},
    {6, "it is locked by another program; close that program or try again"},
    {8, "it cannot be written, it is read-only or was moved; check the file and its permissions"},
    {10, "the file cannot be read or written; check the disk"},
    {11, "the file is damaged; restore it from a copy"},
    {13, "the disk is full; free some space"},
    {14, "the file cannot be opened; check the folder and the permissions"},
    {26, "the file is no SQLite database; name another file"},
};

QString NewConnectionName() {
    static std::atomic<int> count = 0;
    return QStringLiteral("kelvara-%1").arg(++count);
}

void CheckFile(const DatabaseUrl& url, OnMissing onMissing) {
    const QFileInfo file(url.file);
    if (!QFileInfo(file.absolutePath()).isDir()) {
        throw Error(QStringLiteral("database %1: the folder %2 does not exist; create it or name "
                                   "another file")
                        .arg(url.text, file.absolutePath()));
    }
    if (file.isDir()) {
        throw Error(QStringLiteral("database %1: this is a folder; name a file").arg(url.text));
    }
    if (onMissing == OnMissing::Refuse && !file.exists()) {
        throw Error(
            QStringLiteral("database %1: there is no such file; create it with kelvara db init "
                           "or name another one")
                .arg(url.text));
    }
}

}  // namespace

SqlConnection::SqlConnection(const DatabaseUrl& url, OnMissing onMissing,
                             std::chrono::milliseconds busyTimeout)
    : url(url), name(NewConnectionName()) {
    CheckFile(url, onMissing);
    try {
        Open(onMissing, busyTimeout);
    } catch (...) {
        QSqlDatabase::removeDatabase(name);
        throw;
    }
}

SqlConnection::~SqlConnection() { QSqlDatabase::removeDatabase(name); }

void SqlConnection::Open(OnMissing onMissing, std::chrono::milliseconds busyTimeout) {
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(url.driver, name);
        database.setDatabaseName(url.file);
        if (!database.open()) throw Error(Describe(database.lastError()));
    }
    SetBusyTimeout(busyTimeout);
    BringToPresentSchema(*this, url.text, onMissing);
}

QSqlDatabase SqlConnection::Handle() const { return QSqlDatabase::database(name, false); }

void SqlConnection::SetBusyTimeout(std::chrono::milliseconds timeout) {
    // Touches no file and cannot fail.
    QSqlQuery(Handle()).exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(timeout.count()));
}

QSqlQuery SqlConnection::Run(const QString& statement) {
    QSqlQuery query(Handle());
    query.setForwardOnly(true);
    if (!query.exec(statement)) throw Error(Describe(query.lastError()));
    return query;
}

void SqlConnection::Run(QSqlQuery& prepared) {
    if (!prepared.exec()) throw Error(Describe(prepared.lastError()));
}

QString SqlConnection::Describe(const QSqlError& error) const {
    const int code = error.nativeErrorCode().toInt() & 0xff;
    QString reason = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    for (const Reason& known : kReasons) {
        if (known.code == code) reason = QString::fromLatin1(known.text);
    }
    return QStringLiteral("database %1: %2").arg(url.text, reason);
}

SqlTransaction::SqlTransaction(SqlConnection& connection) : connection(connection) {
    connection.Run(QStringLiteral("BEGIN IMMEDIATE"));
}

SqlTransaction::~SqlTransaction() {
    // After some failures the database has rolled back by itself; there is nothing to tell then.
    if (open) QSqlQuery(connection.Handle()).exec(QStringLiteral("ROLLBACK"));
}

void SqlTransaction::Commit() {
    connection.Run(QStringLiteral("COMMIT"));
    open = false;
}

}  // namespace host
