// The schema as a table of steps: a new database takes all of them, an older one those it lacks.
#include "host/Schema.h"

#include <QRegularExpression>
#include <QSqlRecord>
#include <QVariant>

#include "host/Error.h"

namespace host {

namespace {

constexpr int kApplicationId = 0x4B564449;  // tells a dictionary of this system from other files

// Step n leads to version n. Keys are never used twice (AUTOINCREMENT), so that a term that was
// deleted cannot be taken for one that was added. The statement that looks for the block of a page
// group names PAGE, GROUP_KEY, LANG, BLOCK and PATH without their tables: each of these stands in
// one table only.
const std::vector<QStringList> kSteps = {
    {
        "CREATE TABLE BDLANGUAGE (LANG_KEY VARCHAR(10) NOT NULL PRIMARY KEY, "
        "LANG_DESCR VARCHAR(100) NOT NULL, LANG_USE VARCHAR(1) NOT NULL)",
        "CREATE TABLE BDTRANSLATOR (TRANS_KEY INTEGER PRIMARY KEY AUTOINCREMENT)",
    },
    {
        "CREATE TABLE BDGROUP (GROUP_KEY VARCHAR(50) NOT NULL, PAGE INTEGER NOT NULL, "
        "PRIMARY KEY (GROUP_KEY, PAGE))",
        "CREATE TABLE BDPAGE (PAGE_KEY INTEGER PRIMARY KEY AUTOINCREMENT, "
        "PAGE_DESCR VARCHAR(100))",
        "CREATE TABLE BDPAGEBLOCKS (PAGE_KEY INTEGER NOT NULL, LANG VARCHAR(10) NOT NULL, "
        "BLOCK VARCHAR(10) NOT NULL, PATH VARCHAR(260) NOT NULL, "
        "PRIMARY KEY (PAGE_KEY, LANG, BLOCK))",
    },
};

int PresentVersion() { return static_cast<int>(kSteps.size()); }

int Number(SqlConnection& connection, const QString& statement) {
    QSqlQuery query = connection.Run(statement);
    return query.next() ? query.value(0).toInt() : 0;
}

int Version(SqlConnection& connection) {
    return Number(connection, QStringLiteral("PRAGMA user_version"));
}

void RunMissingSteps(SqlConnection& connection) {
    SqlTransaction transaction(connection);
    // Asked again: another program may have done it while this one waited for its turn.
    for (int version = Version(connection); version < PresentVersion(); ++version) {
        for (const QString& statement : kSteps[version]) connection.Run(statement);
    }
    connection.Run(QStringLiteral("PRAGMA application_id = %1").arg(kApplicationId));
    connection.Run(QStringLiteral("PRAGMA user_version = %1").arg(PresentVersion()));
    transaction.Commit();
}

void CheckOwner(SqlConnection& connection, const QString& url, OnMissing onMissing) {
    if (Number(connection, QStringLiteral("PRAGMA application_id")) == kApplicationId) return;
    if (Number(connection, QStringLiteral("SELECT count(*) FROM sqlite_master")) != 0) {
        throw Error(
            QStringLiteral("database %1: it belongs to another program; name another file or "
                           "create one with kelvara db init")
                .arg(url));
    }
    if (onMissing == OnMissing::Refuse) {
        throw Error(
            QStringLiteral("database %1: it is empty; create the dictionary with kelvara db "
                           "init")
                .arg(url));
    }
}

}  // namespace

void BringToPresentSchema(SqlConnection& connection, const QString& url, OnMissing onMissing) {
    CheckOwner(connection, url, onMissing);
    const int version = Version(connection);
    if (version > PresentVersion()) {
        throw Error(
            QStringLiteral("database %1: its schema has version %2 and this program knows %3; "
                           "use a later version of the program")
                .arg(url)
                .arg(version)
                .arg(PresentVersion()));
    }
    // As text is in memory: UTF-8 in the file would lose what a drawing's code page cannot decode.
    if (version == 0) connection.Run(QStringLiteral("PRAGMA encoding = 'UTF-16le'"));
    if (version < PresentVersion()) RunMissingSteps(connection);
}

QString LanguageColumn(int languageKey) { return QStringLiteral("LANGUAGE%1").arg(languageKey); }

void AddLanguageColumn(SqlConnection& connection, int languageKey) {
    const QString column = LanguageColumn(languageKey);
    if (connection.Handle().record(QStringLiteral("BDTRANSLATOR")).contains(column)) return;
    connection.Run(QStringLiteral("ALTER TABLE BDTRANSLATOR ADD COLUMN %1 VARCHAR(%2) DEFAULT ''")
                       .arg(column)
                       .arg(kTermLength));
}

int DeclaredColumnSize(const QSqlDatabase& database, const QString& table, const QString& column) {
    QSqlQuery query(database);
    query.prepare(QStringLiteral(
        "SELECT type FROM pragma_table_info(:table) WHERE name = :column COLLATE NOCASE"));
    query.bindValue(QStringLiteral(":table"), table);
    query.bindValue(QStringLiteral(":column"), column);
    if (!query.exec() || !query.next()) return 0;
    static const QRegularExpression length(QStringLiteral("\\(\\s*(\\d+)"));
    return length.match(query.value(0).toString()).captured(1).toInt();
}

}  // namespace host
