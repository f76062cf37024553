// The product's database as modules reach it.
#pragma once

#include <QFuture>
#include <QString>
#include <memory>

#include "platform/kernel/KVQuery.h"

// Queries take effect in the order submitted, whichever way they were submitted. None of the
// operations throws: a query that fails gives a failed response.
class CKVDatabase {
  public:
    virtual CKVQueryResponse ExecuteSync(std::shared_ptr<CKVQuery> query) = 0;  // returns when done
    // Accepts the query and may return before it has run; the future need not be looked at.
    virtual QFuture<CKVQueryResponse> ExecuteAsync(std::shared_ptr<CKVQuery> query) = 0;
    // Declared length of a column in characters; 0 when there is no such column or no length.
    virtual int GetColumnSize(QString table, QString column) = 0;

    virtual ~CKVDatabase() = default;
};

class CKVDataManager {
  public:
    virtual std::shared_ptr<CKVDatabase> GetDatabase() = 0;  // never null
    virtual ~CKVDataManager() = default;
};
