// Queries, transactions and their failures on the worker thread.
#include "host/Database.h"

#include <QPromise>
#include <QSqlQuery>

#include "host/Error.h"
#include "host/Schema.h"

namespace host {

namespace {

// Long enough for a caller that reads between its writes to stay in one transaction.
constexpr std::chrono::milliseconds kIdleAfter{20};
// Other programs wait for a transaction to end, and its queries are kept until then.
constexpr size_t kLongestTransaction = 10000;

QString ValuesOf(const QSqlQuery& query) {
    QStringList values;
    for (const QVariant& value : query.boundValues()) {
        values << (value.isNull() ? QStringLiteral("NULL") : u'"' + value.toString() + u'"');
    }
    return values.join(QLatin1String(", "));
}

QString Described(const CKVQuery& query, QSqlDatabase database) {
    const QSqlQuery prepared = query.Prepare(database);
    return QStringLiteral("%1; values: %2").arg(prepared.lastQuery(), ValuesOf(prepared));
}

// The same without a connection: an empty database in memory takes the values all the same.
QString Described(const CKVQuery& query) {
    const QString name = QStringLiteral("kelvara-memory-%1").arg(quintptr(&query));
    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name).setDatabaseName(":memory:");
    const QString text = Described(query, QSqlDatabase::database(name));
    QSqlDatabase::removeDatabase(name);
    return text;
}

}  // namespace

Database::Database(const QString& url, OnMissing onMissing, LogLine log,
                   std::chrono::milliseconds busyTimeout)
    : url(url), onMissing(onMissing), log(std::move(log)), busyTimeout(busyTimeout) {
    queue.emplace([this] { CommitWrites(); }, kIdleAfter);
}

Database::~Database() {
    // A connection ends on the thread that made it.
    queue->Submit([this] {
        CommitWrites();
        connection.reset();
    });
    queue.reset();
}

void Database::Open() {
    std::exception_ptr failure;
    queue->RunAndWait([&] {
        try {
            Connect();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    if (failure) std::rethrow_exception(failure);
}

void Database::Commit() {
    queue->RunAndWait([this] { CommitWrites(); });
}

CKVQueryResponse Database::ExecuteSync(std::shared_ptr<CKVQuery> query) {
    CKVQueryResponse response;
    queue->RunAndWait([&] { response = Execute(query); });
    return response;
}

QFuture<CKVQueryResponse> Database::ExecuteAsync(std::shared_ptr<CKVQuery> query) {
    auto promise = std::make_shared<QPromise<CKVQueryResponse>>();
    promise->start();
    QFuture<CKVQueryResponse> future = promise->future();
    queue->Submit([this, promise, query = std::move(query)] {
        promise->addResult(Execute(query));
        promise->finish();
    });
    return future;
}

int Database::GetColumnSize(QString table, QString column) {
    int size = 0;
    queue->RunAndWait([&] {
        try {
            Connect();
            size = DeclaredColumnSize(connection->Handle(), table, column);
        } catch (const Error& error) {
            log(QString::fromUtf8(error.what()));
        }
    });
    return size;
}

void Database::Connect() {
    if (!connection) connection.emplace(ParseDatabaseUrl(url), onMissing, busyTimeout);
}

void Database::BeginWriting() {
    if (writing) return;
    try {
        connection->Run(QStringLiteral("BEGIN IMMEDIATE"));
        writing = true;
    } catch (const Error&) {
        // The rest of the burst need not wait as long for the same lock.
        if (patient) connection->SetBusyTimeout(std::chrono::milliseconds(0));
        patient = false;
        throw;
    }
}

void Database::CommitWrites(const QString& cause) {
    if (!patient) connection->SetBusyTimeout(busyTimeout);
    patient = true;
    if (!writing) return;
    writing = false;
    const auto writes = std::exchange(uncommitted, {});
    QSqlQuery commit(connection->Handle());
    if (commit.exec(QStringLiteral("COMMIT"))) return;
    const QString reason = cause.isEmpty() ? connection->Describe(commit.lastError()) : cause;
    // Also when the database has rolled back by itself, and there is nothing left to roll back.
    QSqlQuery(connection->Handle()).exec(QStringLiteral("ROLLBACK"));
    for (const auto& write : writes) LogFailure(*write, reason);
}

CKVQueryResponse Database::Execute(const std::shared_ptr<CKVQuery>& query) {
    CKVQueryResponse response;
    try {
        Connect();
        response = ExecuteConnected(query);
    } catch (const std::exception& error) {
        const QSqlError reason(QString(), QString::fromUtf8(error.what()));
        response = CKVQueryResponse::Failure(reason);
        LogFailure(*query, reason.text());
        return response;
    }
    if (response.failed()) LogFailure(*query, connection->Describe(response.getError()));
    return response;
}

CKVQueryResponse Database::ExecuteConnected(const std::shared_ptr<CKVQuery>& query) {
    if (query->IsReadOnly()) return query->Execute(connection->Handle());
    BeginWriting();
    CKVQueryResponse response = query->Execute(connection->Handle());
    if (response.succeeded()) uncommitted.push_back(query);
    // Some failures end the transaction on the side of the database. Committing shows which.
    if (response.failed()) CommitWrites(connection->Describe(response.getError()));
    if (uncommitted.size() >= kLongestTransaction) CommitWrites();
    return response;
}

void Database::LogFailure(const CKVQuery& query, const QString& reason) {
    try {
        const QString what = connection ? Described(query, connection->Handle()) : Described(query);
        log(QStringLiteral("query failed: %1; %2").arg(reason, what));
    } catch (const std::exception& error) {
        log(QStringLiteral("query failed: %1; it cannot be prepared: %2")
                .arg(reason, QString::fromUtf8(error.what())));
    }
}

}  // namespace host
