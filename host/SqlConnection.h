// A connection to the dictionary's database, checked and brought to the present schema.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <chrono>

#include "host/DatabaseUrl.h"

namespace host {

enum class OnMissing { Refuse, Create };  // what opening does where there is no dictionary yet

// How long a statement waits for a lock that another program holds.
inline constexpr std::chrono::milliseconds kBusyTimeout{5000};

// Belongs to the thread that made it. The program needs a QCoreApplication, as Qt Sql does.
class SqlConnection {
  public:
    // Throws host::Error: folder or file missing, file locked, no database, of another program, of
    // a later version, or of an earlier one that cannot be upgraded.
    SqlConnection(const DatabaseUrl& url, OnMissing onMissing,
                  std::chrono::milliseconds busyTimeout = kBusyTimeout);
    ~SqlConnection();
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    QSqlDatabase Handle() const;
    void SetBusyTimeout(std::chrono::milliseconds timeout);

    QSqlQuery Run(const QString& statement);  // throws host::Error
    void Run(QSqlQuery& prepared);            // likewise
    // One clear sentence for what the database answered: where, why, what to do.
    QString Describe(const QSqlError& error) const;

  private:
    void Open(OnMissing onMissing, std::chrono::milliseconds busyTimeout);

    DatabaseUrl url;
    QString name;  // under which Qt keeps the connection
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
