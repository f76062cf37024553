// What differs between the databases that can hold a dictionary.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QStringList>
#include <chrono>
#include <memory>

#include "host/DatabaseUrl.h"

namespace host {

enum class OnMissing { Refuse, Create };  // what opening does where there is no dictionary yet

// Of one database. Statements are SQL; those that are empty are not needed there.
class SqlDialect {
  public:
    virtual ~SqlDialect() = default;

    // --- Opening ---

    virtual QString Driver() const = 0;   // the name that Qt Sql has for it
    virtual QString Package() const = 0;  // that brings the driver
    // Throws host::Error where opening could only fail, or would make a file that nobody asked for.
    virtual void CheckPlace(OnMissing onMissing) const = 0;
    virtual void SetAddress(QSqlDatabase& database) const = 0;
    virtual QStringList Greeting() const = 0;  // what a new connection is told first
    virtual QString SetLockTimeout(std::chrono::milliseconds timeout) const = 0;

    // Called once a connection stands.
    virtual void RememberPlace() {}
    // Whether the place leads to something else by now than to what was opened.
    virtual bool HasMoved() const { return false; }
    // Whether there is anybody at the other end of the connection.
    virtual bool Answers(const QSqlDatabase&) const { return true; }

    // Why something failed and what to do, for a message that names the database.
    virtual QString Reason(const QSqlError& error) const = 0;

    // --- Transactions ---

    // Opens one and takes the right to write at once: one program writes at a time, so that no two
    // can wait for each other. Readers go on. The last statement may select the transaction's name.
    virtual QStringList Begin() const = 0;
    // Selects 1 for a transaction that was committed. Asked by one that holds the right to write.
    virtual QString WasCommitted(const QString& transaction) const = 0;
    // Whether a commit that failed with this may succeed later, its transaction being still open.
    virtual bool MayCommitLater(const QSqlError&) const { return false; }

    // --- Schema ---

    virtual QString KeyType() const = 0;  // of a column whose keys the database gives, none twice
    virtual QString ApplicationId() const = 0;  // selects who made the schema, 0 for others
    virtual QString SchemaVersion() const = 0;  // selects 0 where there is none
    virtual QString TableCount() const = 0;
    // To be run in a new database, before its first transaction and in it.
    virtual QStringList BeforeFirstTable() const = 0;
    virtual QStringList AfterFirstTables() const = 0;
    virtual QStringList Mark(int applicationId, int version) const = 0;
    // Selects the declared type of the column :column of the table :table.
    virtual QString ColumnType() const = 0;
};

std::unique_ptr<SqlDialect> MakeSqliteDialect(const DatabaseUrl& url);
std::unique_ptr<SqlDialect> MakePostgresDialect(const DatabaseUrl& url);

}  // namespace host
