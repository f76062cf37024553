// Text for databases that hold nothing but UTF-8.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

// UTF-8 holds no unpaired surrogate, and PostgreSQL no null character; texts of drawings may have
// both. There each such unit travels as one character of the private plane 16, and comes back as it
// was: Decoded(Encoded(text)) is text, whatever it holds.
namespace sqltext {

QString Encoded(const QString& text);
QString Decoded(const QString& text);

bool NeedsEncoding(const QSqlDatabase& database);  // SQLite keeps every unit
void EncodeValues(QSqlQuery& prepared);            // all texts that are bound

}  // namespace sqltext
