// A connection to the dictionary's database, checked and brought to the present schema.
#pragma once

#include <QSqlQuery>
#include <chrono>

#include "host/SqlDialect.h"

namespace host {

// How long a statement waits for a lock that another program holds.
inline constexpr std::chrono::milliseconds kBusyTimeout{5000};

// Belongs to the thread that made it. The program needs a QCoreApplication, as Qt Sql does.
class SqlConnection {
  public:
    // Throws host::Error: folder or file missing, file locked, server out of reach, wrong password,
    // no database, of another program, of a later version, or of an earlier one that cannot be
    // upgraded.
    SqlConnection(const DatabaseUrl& url, OnMissing onMissing,
                  std::chrono::milliseconds busyTimeout = kBusyTimeout);
    ~SqlConnection();
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    QSqlDatabase Handle() const;
    const SqlDialect& Dialect() const { return *dialect; }
    void SetBusyTimeout(std::chrono::milliseconds timeout);

    bool HasMoved() const { return dialect->HasMoved(); }
    bool IsLost() const;  // asks the database

    QSqlError Try(const QString& statement);  // not valid when it succeeded
    QSqlError Begin();   // takes the right to write at once; nothing is open when that fails
    QSqlError Commit();  // fails where the file is not in its place any more
    const QString& Transaction() const { return transaction; }  // the database's name for the last
    bool WasCommitted(const QString& transaction);  // of an earlier one; throws host::Error
    QSqlQuery Run(const QString& statement);        // throws host::Error
    void Run(QSqlQuery& prepared);                  // likewise
    QString Value(const QString& statement);  // likewise; first column of the first row, or empty

    QString Text(const QSqlQuery& row, int column) const;  // as it was before it was stored

    // One clear sentence for what the database answered: where, why, what to do.
    QString Describe(const QSqlError& error) const;

  private:
    QSqlError Execute(QSqlQuery& query, const QString& statement);
    void Open(OnMissing onMissing, std::chrono::milliseconds busyTimeout);

    DatabaseUrl url;
    std::unique_ptr<SqlDialect> dialect;
    QString name;  // under which Qt keeps the connection
    QString transaction;
    bool encoding = false;  // the database cannot hold every text as it is
};

// Writes of one unit: all of them, or none when it ends without Commit.
class SqlTransaction {
  public:
    explicit SqlTransaction(SqlConnection& connection);  // takes the right to write at once
    ~SqlTransaction();
    void Commit();

  private:
    SqlConnection& connection;
    bool open = true;
};

}  // namespace host
