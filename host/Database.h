// The product's database: one worker thread owns the connection and runs queries in order.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "host/SqlConnection.h"
#include "host/WorkQueue.h"
#include "platform/kernel/KVDatabase.h"

namespace host {

// The writes of a burst share a transaction. It is committed when the queue falls idle, by Commit,
// and at the end; one that must wait for readers is tried again until then. A query that fails is
// logged with its statement and its values, and so is every write of a transaction that could not
// be committed. A connection that broke is made again by the next query, and what the open
// transaction held is repeated.
class Database : public CKVDatabase {
  public:
    using LogLine = std::function<void(const QString&)>;  // called on the worker thread

    // Opens nothing yet: the first query does, and each later burst again for as long as it fails.
    // The time is that for locks of other programs, and for a server to come back.
    Database(const QString& url, OnMissing onMissing, LogLine log,
             std::chrono::milliseconds busyTimeout = kBusyTimeout);
    ~Database() override;  // runs what is queued, commits, closes

    void Open();  // throws host::Error when the database cannot be used
    // Returns when everything submitted so far is stored, in the log, or waits for readers.
    void Commit();

    // Lets go of what queries have made, on the thread that has made it: memory given back by
    // another thread costs more.
    void LetGo(std::shared_ptr<void> made);

    CKVQueryResponse ExecuteSync(std::shared_ptr<CKVQuery> query) override;
    // The future tells of the statement, not of the commit that follows.
    QFuture<CKVQueryResponse> ExecuteAsync(std::shared_ptr<CKVQuery> query) override;
    int GetColumnSize(QString table, QString column) override;

  private:
    using Writes = std::vector<std::shared_ptr<CKVQuery>>;

    // On the worker thread.
    void Connect();  // throws host::Error
    void ConnectWithin(std::chrono::milliseconds time);
    void Reconnect();  // throws host::Error
    void Forget();
    void Repeat(const Writes& writes, const QString& transaction);  // throws host::Error
    QSqlError BeginWriting();
    enum class Then { GoOn, Close };
    void CommitWrites(Then then = Then::GoOn);
    void WaitForReaders();
    bool EndBurst();  // whether nothing is left to commit
    void BePatient(bool wanted);
    CKVQueryResponse Execute(const std::shared_ptr<CKVQuery>& query);
    CKVQueryResponse ExecuteConnected(const std::shared_ptr<CKVQuery>& query);
    CKVQueryResponse Attempt(const CKVQuery& query);
    void Settle(const std::shared_ptr<CKVQuery>& query, const CKVQueryResponse& response);
    void GiveUp(const QString& reason);
    int ColumnSize(const QString& table, const QString& column);
    void LogFailure(const CKVQuery& query, const QString& reason);

    QString url;
    OnMissing onMissing;
    LogLine log;
    std::chrono::milliseconds busyTimeout;

    // Used by the worker thread alone.
    std::optional<SqlConnection> connection;
    bool writing = false;  // a transaction is open
    std::chrono::steady_clock::time_point begun;
    Writes uncommitted;  // what it holds
    // So that the rest of a burst need not wait for the same lock or server as long again:
    bool patient = true;  // false after a lock that does not go away
    QString unreachable;  // why the database could not be opened

    std::optional<WorkQueue> queue;  // last: its thread uses all of the others
};

}  // namespace host
