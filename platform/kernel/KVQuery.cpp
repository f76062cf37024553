// Running a query and gathering its rows.
#include "platform/kernel/KVQuery.h"

#include <QSqlRecord>

#include "platform/kernel/KVSqlText.h"

namespace {

QVariant Decoded(const QVariant& value) {
    if (value.typeId() != QMetaType::QString || value.isNull()) return value;
    return sqltext::Decoded(value.toString());
}

}  // namespace

CKVQueryResponse CKVQueryResponse::Failure(const QSqlError& error) {
    CKVQueryResponse response;
    response.error = error;
    return response;
}

QVariant CKVQueryResponse::getSingleResult() const {
    return rows.empty() || rows.front().empty() ? QVariant() : rows.front().front();
}

CKVQueryResponse CKVQuery::Execute(QSqlDatabase database) const {
    QSqlQuery query = Prepare(database);
    const QSqlError prepared = query.lastError();  // exec() forgets why prepare() failed
    if (prepared.isValid()) return CKVQueryResponse::Failure(prepared);
    const bool encoding = sqltext::NeedsEncoding(database);
    if (encoding) sqltext::EncodeValues(query);
    // Rows are read once and in order: the driver need not keep a copy of them.
    query.setForwardOnly(true);
    if (!query.exec()) return CKVQueryResponse::Failure(query.lastError());

    CKVQueryResponse::Rows rows;
    const int columns = query.record().count();
    while (query.next()) {
        std::vector<QVariant>& row = rows.emplace_back();
        row.reserve(columns);
        for (int i = 0; i < columns; ++i) {
            row.push_back(encoding ? Decoded(query.value(i)) : query.value(i));
        }
    }
    if (query.lastError().isValid()) return CKVQueryResponse::Failure(query.lastError());
    return CKVQueryResponse(std::move(rows));
}
