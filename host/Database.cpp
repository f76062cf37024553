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
constexpr std::chrono::milliseconds kBetweenAttempts{100};
// Of a server that comes back and goes away again while the same statement is tried.
constexpr int kMostOutages = 8;
// Other programs wait for a transaction to end, and its queries are kept until then.
constexpr std::chrono::milliseconds kLongestTransaction{1000};
// Behind a long one they get their turn: SQLite lets them look again after 100 ms at the latest.
constexpr std::chrono::milliseconds kPause{120};

// Around each statement of a transaction: where one that fails spoils the transaction, the writes
// before it stand nevertheless.
const QString kSavepoint = QStringLiteral("SAVEPOINT KELVARA");
const QString kRelease = QStringLiteral("RELEASE SAVEPOINT KELVARA");
const QString kBackToSavepoint = QStringLiteral("ROLLBACK TO SAVEPOINT KELVARA");

QString ValuesOf(const QSqlQuery& query) {
    QStringList values;
    for (const QVariant& value : query.boundValues()) {
        values << (value.isNull() ? QStringLiteral("NULL") : u'"' + value.toString() + u'"');
    }
    return values.join(QLatin1String(", "));
}

// Takes a connection out of Qt's list again; those who use it must have ended.
struct ConnectionName {
    QString name;
    ~ConnectionName() { QSqlDatabase::removeDatabase(name); }
};

// The statement and its values. An empty database in memory takes them as well as any, and asking
// the one in use could fail once more, or spoil an open transaction.
QString Described(const CKVQuery& query) {
    const ConnectionName named{QStringLiteral("kelvara-memory-%1").arg(quintptr(&query))};
    QSqlDatabase memory = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), named.name);
    memory.setDatabaseName(":memory:");
    memory.open();
    const QSqlQuery prepared = query.Prepare(memory);
    return QStringLiteral("%1; values: %2").arg(prepared.lastQuery(), ValuesOf(prepared));
}

}  // namespace

Database::Database(const QString& url, OnMissing onMissing, LogLine log,
                   std::chrono::milliseconds busyTimeout)
    : url(url), onMissing(onMissing), log(std::move(log)), busyTimeout(busyTimeout) {
    queue.emplace([this] { return EndBurst(); }, kIdleAfter);
}

Database::~Database() {
    // A connection ends on the thread that made it.
    queue->Submit([this] {
        if (writing) BePatient(true);
        CommitWrites(Then::Close);
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
    queue->RunAndWait([this] { EndBurst(); });
}

void Database::LetGo(std::shared_ptr<void> made) {
    queue->Submit([made = std::move(made)]() mutable { made.reset(); });
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
            size = ColumnSize(table, column);
        } catch (const Error& error) {
            log(QString::fromUtf8(error.what()));
        }
    });
    return size;
}

int Database::ColumnSize(const QString& table, const QString& column) {
    Connect();
    for (int outages = 0;; ++outages) {
        try {
            return DeclaredColumnSize(*connection, table, column);
        } catch (const Error&) {
            if (outages == kMostOutages || !connection->IsLost()) throw;
        }
        Reconnect();
    }
}

void Database::Connect() {
    if (connection && !writing && connection->HasMoved()) connection.reset();
    if (connection) return;
    if (!unreachable.isEmpty()) throw Error(unreachable);
    try {
        connection.emplace(ParseDatabaseUrl(url), onMissing, busyTimeout);
    } catch (const Error& error) {
        unreachable = QString::fromUtf8(error.what());
        throw;
    }
    patient = true;
    onMissing = OnMissing::Refuse;  // a dictionary that has gone is not replaced by an empty one
}

// A server that is restarted is away for a moment.
void Database::ConnectWithin(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (!connection) {
        try {
            Connect();
        } catch (const Error&) {
            if (std::chrono::steady_clock::now() >= end) throw;
            unreachable.clear();
            std::this_thread::sleep_for(kBetweenAttempts);
        }
    }
}

void Database::Reconnect() {
    const Writes writes = std::exchange(uncommitted, {});
    const QString transaction = connection->Transaction();
    const auto patience = connection->HasMoved() ? std::chrono::milliseconds(0) : busyTimeout;
    for (int outages = 0;; ++outages) {
        Forget();
        try {
            ConnectWithin(patience);
            return Repeat(writes, transaction);
        } catch (const Error& error) {
            if (outages < kMostOutages && connection && connection->IsLost()) continue;
            Forget();
            for (const auto& write : writes) LogFailure(*write, QString::fromUtf8(error.what()));
            throw;
        }
    }
}

// What a transaction held that ended with its connection is undone.
void Database::Forget() {
    writing = false;
    uncommitted.clear();
    connection.reset();
}

// The connection may have broken behind the commit. That is asked with the right to write in hand,
// which a server gives only when it has done with the old transaction.
void Database::Repeat(const Writes& writes, const QString& transaction) {
    if (writes.empty()) return;
    const QSqlError error = BeginWriting();
    if (error.isValid()) throw Error(connection->Describe(error));
    if (connection->WasCommitted(transaction)) return;
    for (const auto& write : writes) {
        const CKVQueryResponse response = Attempt(*write);
        if (response.failed() && connection->IsLost()) {
            throw Error(connection->Describe(response.getError()));
        }
        Settle(write, response);
    }
}

QSqlError Database::BeginWriting() {
    if (writing) return {};
    const QSqlError error = connection->Begin();
    writing = !error.isValid();
    begun = std::chrono::steady_clock::now();
    BePatient(writing);
    return error;
}

void Database::BePatient(bool wanted) {
    if (patient == wanted) return;
    patient = wanted;
    if (connection)
        connection->SetBusyTimeout(patient ? busyTimeout : std::chrono::milliseconds(0));
}

void Database::CommitWrites(Then then) {
    if (!writing) return;
    try {
        QSqlError error = connection->Commit();
        for (int n = 0; n < kMostOutages && error.isValid() && connection->IsLost(); ++n) {
            Reconnect();
            error = writing ? connection->Commit() : QSqlError();
        }
        if (then == Then::GoOn && connection->Dialect().MayCommitLater(error))
            return WaitForReaders();
        if (error.isValid()) return GiveUp(connection->Describe(error));
    } catch (const Error&) {
        return;  // every write is in the log
    }
    writing = false;
    uncommitted.clear();
    BePatient(true);
}

// A file takes a commit only when nobody is in the middle of reading it.
void Database::WaitForReaders() {
    BePatient(false);
    begun = std::chrono::steady_clock::now();
}

bool Database::EndBurst() {
    CommitWrites();
    if (!writing) BePatient(true);
    unreachable.clear();
    return !writing;
}

CKVQueryResponse Database::Execute(const std::shared_ptr<CKVQuery>& query) {
    try {
        return ExecuteConnected(query);
    } catch (const std::exception& error) {
        const QString reason = QString::fromUtf8(error.what());
        LogFailure(*query, reason);
        return CKVQueryResponse::Failure(QSqlError(QString(), reason));
    }
}

CKVQueryResponse Database::ExecuteConnected(const std::shared_ptr<CKVQuery>& query) {
    Connect();
    CKVQueryResponse response = Attempt(*query);
    for (int n = 0; n < kMostOutages && response.failed() && connection->IsLost(); ++n) {
        Reconnect();
        response = Attempt(*query);
    }
    Settle(query, response);
    if (writing && std::chrono::steady_clock::now() > begun + kLongestTransaction) {
        CommitWrites();
        if (!writing) std::this_thread::sleep_for(kPause);
    }
    return response;
}

CKVQueryResponse Database::Attempt(const CKVQuery& query) {
    QSqlError error;
    if (!query.IsReadOnly()) error = BeginWriting();
    if (writing && !error.isValid()) error = connection->Try(kSavepoint);
    if (error.isValid()) return CKVQueryResponse::Failure(error);
    if (!connection->Handle().isOpen()) return CKVQueryResponse();
    CKVQueryResponse response = query.Execute(connection->Handle());
    // Should this fail, the next statement does too, and tells.
    if (writing && response.succeeded()) connection->Try(kRelease);
    return response;
}

void Database::Settle(const std::shared_ptr<CKVQuery>& query, const CKVQueryResponse& response) {
    if (response.succeeded()) {
        if (!query->IsReadOnly()) uncommitted.push_back(query);
        return;
    }
    const QString reason = connection->Describe(response.getError());
    // Some failures end the whole transaction on the side of the database, savepoints included.
    if (writing && connection->Try(kBackToSavepoint).isValid()) GiveUp(reason);
    LogFailure(*query, reason);
}

void Database::GiveUp(const QString& reason) {
    // Also when the database has rolled back by itself, and there is nothing left to roll back.
    connection->Try(QStringLiteral("ROLLBACK"));
    if (patient) connection->SetBusyTimeout(busyTimeout);  // a server rolls that back too
    writing = false;
    for (const auto& write : std::exchange(uncommitted, {})) LogFailure(*write, reason);
}

void Database::LogFailure(const CKVQuery& query, const QString& reason) {
    try {
        log(QStringLiteral("query failed: %1; %2").arg(reason, Described(query)));
    } catch (const std::exception& error) {
        log(QStringLiteral("query failed: %1; it cannot be prepared: %2")
                .arg(reason, QString::fromUtf8(error.what())));
    }
}

}  // namespace host
