// A statement for the product's database, and what comes back.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <list>
#include <string>
#include <vector>

// The outcome of a query: one list element a row, one value a selected column, in the order of the
// database. A query that failed has no rows and says why.
class CKVQueryResponse {
  public:
    using Rows = std::list<std::vector<QVariant>>;

    CKVQueryResponse() = default;  // failed, without a reason
    explicit CKVQueryResponse(Rows rows) : rows(std::move(rows)), ok(true) {}
    static CKVQueryResponse Failure(const QSqlError& error);

    bool succeeded() const { return ok; }
    bool failed() const { return !ok; }
    Rows& getResult() { return rows; }
    const Rows& getResult() const { return rows; }
    QVariant getSingleResult() const;  // first column of the first row; null when there is none
    const QSqlError& getError() const { return error; }  // not valid after success

  private:
    Rows rows;
    QSqlError error;
    bool ok = false;
};

// Knows how to prepare one statement and how to name itself. Prepare and Execute are called on the
// thread that owns the connection, so that a query must hold copies of what it binds.
class CKVQuery {
  public:
    virtual bool IsReadOnly() const = 0;
    virtual bool IsCacheable() const { return false; }  // another program may write at any moment
    virtual std::string GetCacheKey() const = 0;
    virtual bool IsDatabaseQuery() const = 0;
    virtual QSqlQuery Prepare(QSqlDatabase database) const = 0;  // prepared and bound, not executed
    virtual CKVQueryResponse Execute(QSqlDatabase database) const;

    virtual ~CKVQuery() = default;
};
