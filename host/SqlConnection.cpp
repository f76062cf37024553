// Opening the database, and its errors in words.
#include "host/SqlConnection.h"

#include <QVariant>
#include <atomic>

#include "host/Error.h"
#include "host/Schema.h"
#include "platform/kernel/KVSqlText.h"

namespace host {

namespace {

QString NewConnectionName() {
    static std::atomic<int> count = 0;
    return QStringLiteral("kelvara-%1").arg(++count);
}

std::unique_ptr<SqlDialect> MakeDialect(const DatabaseUrl& url) {
    return url.kind == DatabaseUrl::Kind::Sqlite ? MakeSqliteDialect(url)
                                                 : MakePostgresDialect(url);
}

}  // namespace

SqlConnection::SqlConnection(const DatabaseUrl& url, OnMissing onMissing,
                             std::chrono::milliseconds busyTimeout)
    : url(url), dialect(MakeDialect(url)), name(NewConnectionName()) {
    dialect->CheckPlace(onMissing);
    if (!QSqlDatabase::isDriverAvailable(dialect->Driver())) {
        throw Error(QStringLiteral("database %1: there is no driver for it; install %2")
                        .arg(url.text, dialect->Package()));
    }
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
        QSqlDatabase database = QSqlDatabase::addDatabase(dialect->Driver(), name);
        dialect->SetAddress(database);
        if (!database.open()) throw Error(Describe(database.lastError()));
        encoding = sqltext::NeedsEncoding(database);
    }
    for (const QString& statement : dialect->Greeting()) Run(statement);
    SetBusyTimeout(busyTimeout);
    BringToPresentSchema(*this, url.text, onMissing);
    dialect->RememberPlace();
}

QSqlDatabase SqlConnection::Handle() const { return QSqlDatabase::database(name, false); }

void SqlConnection::SetBusyTimeout(std::chrono::milliseconds timeout) {
    // Where it fails the connection is lost, and the next statement says so.
    Try(dialect->SetLockTimeout(timeout));
}

bool SqlConnection::IsLost() const { return dialect->HasMoved() || !dialect->Answers(Handle()); }

QSqlError SqlConnection::Try(const QString& statement) {
    QSqlQuery query(Handle());
    return Execute(query, statement);
}

// On a connection that the driver knows to be broken Qt executes nothing, and tells no error.
QSqlError SqlConnection::Execute(QSqlQuery& query, const QString& statement) {
    if (Handle().isOpen() && query.exec(statement)) return {};
    const QSqlError error = query.lastError();
    if (error.isValid()) return error;
    return QSqlError(QString(), QStringLiteral("the connection is broken"),
                     QSqlError::ConnectionError);
}

QSqlError SqlConnection::Begin() {
    transaction.clear();
    for (const QString& statement : dialect->Begin()) {
        QSqlQuery query(Handle());
        if (const QSqlError error = Execute(query, statement); error.isValid()) {
            Try(QStringLiteral("ROLLBACK"));
            return error;
        }
        transaction = query.next() ? query.value(0).toString() : QString();
    }
    return {};
}

QSqlError SqlConnection::Commit() {
    if (!HasMoved()) return Try(QStringLiteral("COMMIT"));
    return QSqlError(QString(), QStringLiteral("the file was moved, replaced or removed"),
                     QSqlError::TransactionError);
}

bool SqlConnection::WasCommitted(const QString& earlier) {
    return !earlier.isEmpty() && Value(dialect->WasCommitted(earlier)).toInt() == 1;
}

QSqlQuery SqlConnection::Run(const QString& statement) {
    QSqlQuery query(Handle());
    query.setForwardOnly(true);
    const QSqlError error = Execute(query, statement);
    if (error.isValid()) throw Error(Describe(error));
    return query;
}

void SqlConnection::Run(QSqlQuery& prepared) {
    if (encoding) sqltext::EncodeValues(prepared);
    if (!prepared.exec()) throw Error(Describe(prepared.lastError()));
}

QString SqlConnection::Value(const QString& statement) {
    QSqlQuery query = Run(statement);
    return query.next() ? query.value(0).toString() : QString();
}

QString SqlConnection::Text(const QSqlQuery& row, int column) const {
    const QString text = row.value(column).toString();
    return encoding ? sqltext::Decoded(text) : text;
}

QString SqlConnection::Describe(const QSqlError& error) const {
    return QStringLiteral("database %1: %2").arg(url.text, dialect->Reason(error));
}

SqlTransaction::SqlTransaction(SqlConnection& connection) : connection(connection) {
    const QSqlError error = connection.Begin();
    if (error.isValid()) throw Error(connection.Describe(error));
}

SqlTransaction::~SqlTransaction() {
    // After some failures the database has rolled back by itself; there is nothing to tell then.
    if (open) connection.Try(QStringLiteral("ROLLBACK"));
}

void SqlTransaction::Commit() {
    const QSqlError error = connection.Commit();
    if (error.isValid()) throw Error(connection.Describe(error));
    open = false;
}

}  // namespace host
