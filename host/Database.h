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
// and at the end. A query that fails is logged with its statement and its values, and so is every
// write of a transaction that could not be committed.
class Database : public CKVDatabase {
  public:
    using LogLine = std::function<void(const QString&)>;  // called on the worker thread

    // Opens nothing yet: the first query does, and each later one again for as long as it fails.
    Database(const QString& url, OnMissing onMissing, LogLine log,
             std::chrono::milliseconds busyTimeout = kBusyTimeout);
    ~Database() override;  // runs what is queued, commits, closes

    void Open();    // throws host::Error when the database cannot be used
    void Commit();  // returns when everything submitted so far is in the file, or in the log

    CKVQueryResponse ExecuteSync(std::shared_ptr<CKVQuery> query) override;
    // The future tells of the statement, not of the commit that follows.
    QFuture<CKVQueryResponse> ExecuteAsync(std::shared_ptr<CKVQuery> query) override;
    int GetColumnSize(QString table, QString column) override;

  private:
    // On the worker thread.
    void Connect();
    void BeginWriting();
    void CommitWrites(const QString& cause = {});  // cause: why it is known to fail
    CKVQueryResponse Execute(const std::shared_ptr<CKVQuery>& query);
    CKVQueryResponse ExecuteConnected(const std::shared_ptr<CKVQuery>& query);
    void LogFailure(const CKVQuery& query, const QString& reason);

    QString url;
    OnMissing onMissing;
    LogLine log;
    std::chrono::milliseconds busyTimeout;

    // Used by the worker thread alone.
    std::optional<SqlConnection> connection;
    std::vector<std::shared_ptr<CKVQuery>> uncommitted;
    bool writing = false;  // a transaction is open
    bool patient = true;   // false after a lock that did not go away

    std::optional<WorkQueue> queue;  // last: its thread uses all of the others
};

}  // namespace host
