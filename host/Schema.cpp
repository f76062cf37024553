// The schema as a table of steps: a new database takes all of them, an older one those it lacks.
#include "host/Schema.h"

#include <QRegularExpression>
#include <QVariant>
#include <optional>

#include "host/Error.h"

namespace host {

namespace {

constexpr int kApplicationId = 0x4B564449;  // tells a dictionary of this system from other files

// Step n leads to version n; %1 is the type of a key that the database gives. Keys are never used
// twice, so that a term that was deleted cannot be taken for one that was added. The statement that
// looks for the block of a page group names PAGE, GROUP_KEY, LANG, BLOCK and PATH without their
// tables: each of these stands in one table only.
const std::vector<QStringList> kSteps = {
    {
        "CREATE TABLE BDLANGUAGE (LANG_KEY VARCHAR(10) NOT NULL PRIMARY KEY, "
        "LANG_DESCR VARCHAR(100) NOT NULL, LANG_USE VARCHAR(1) NOT NULL)",
        "CREATE TABLE BDTRANSLATOR (TRANS_KEY %1)",
    },
    {
        "CREATE TABLE BDGROUP (GROUP_KEY VARCHAR(50) NOT NULL, PAGE INTEGER NOT NULL, "
        "PRIMARY KEY (GROUP_KEY, PAGE))",
        "CREATE TABLE BDPAGE (PAGE_KEY %1, PAGE_DESCR VARCHAR(100))",
        "CREATE TABLE BDPAGEBLOCKS (PAGE_KEY INTEGER NOT NULL, LANG VARCHAR(10) NOT NULL, "
        "BLOCK VARCHAR(10) NOT NULL, PATH VARCHAR(260) NOT NULL, "
        "PRIMARY KEY (PAGE_KEY, LANG, BLOCK))",
    },
};

int PresentVersion() { return static_cast<int>(kSteps.size()); }

int Number(SqlConnection& connection, const QString& statement) {
    return connection.Value(statement).toInt();
}

int Version(SqlConnection& connection) {
    return Number(connection, connection.Dialect().SchemaVersion());
}

void RunAll(SqlConnection& connection, const QStringList& statements) {
    for (const QString& statement : statements) connection.Run(statement);
}

void RunMissingSteps(SqlConnection& connection) {
    const SqlDialect& dialect = connection.Dialect();
    SqlTransaction transaction(connection);
    // Asked again: another program may have done it while this one waited for its turn.
    for (int version = Version(connection); version < PresentVersion(); ++version) {
        QStringList statements = kSteps[version];
        RunAll(connection, statements.replaceInStrings("%1", dialect.KeyType()));
        if (version == 0) RunAll(connection, dialect.AfterFirstTables());
    }
    RunAll(connection, dialect.Mark(kApplicationId, PresentVersion()));
    transaction.Commit();
}

// Tables are counted first: where another program makes them in between, the mark is there too.
void CheckOwner(SqlConnection& connection, const QString& url, OnMissing onMissing) {
    if (Number(connection, connection.Dialect().TableCount()) == 0) {
        if (onMissing == OnMissing::Create) return;
        throw Error(
            QStringLiteral("database %1: it is empty; create the dictionary with kelvara db "
                           "init")
                .arg(url));
    }
    if (Number(connection, connection.Dialect().ApplicationId()) != kApplicationId) {
        throw Error(
            QStringLiteral("database %1: it belongs to another program; name another one or "
                           "create one with kelvara db init")
                .arg(url));
    }
}

// Nothing when there is no such column.
std::optional<QString> DeclaredType(SqlConnection& connection, const QString& table,
                                    const QString& column) {
    QSqlQuery query(connection.Handle());
    query.prepare(connection.Dialect().ColumnType());
    query.bindValue(QStringLiteral(":table"), table);
    query.bindValue(QStringLiteral(":column"), column);
    connection.Run(query);
    return query.next() ? std::optional(query.value(0).toString()) : std::nullopt;
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
    if (version == 0) RunAll(connection, connection.Dialect().BeforeFirstTable());
    if (version < PresentVersion()) RunMissingSteps(connection);
}

QString LanguageColumn(int languageKey) { return QStringLiteral("LANGUAGE%1").arg(languageKey); }

void AddLanguageColumn(SqlConnection& connection, int languageKey) {
    const QString column = LanguageColumn(languageKey);
    if (HasColumn(connection, QStringLiteral("BDTRANSLATOR"), column)) return;
    connection.Run(QStringLiteral("ALTER TABLE BDTRANSLATOR ADD COLUMN %1 VARCHAR(%2) DEFAULT ''")
                       .arg(column)
                       .arg(kTermLength));
}

int DeclaredColumnSize(SqlConnection& connection, const QString& table, const QString& column) {
    static const QRegularExpression length(QStringLiteral("\\(\\s*(\\d+)"));
    return length.match(DeclaredType(connection, table, column).value_or(QString()))
        .captured(1)
        .toInt();
}

bool HasColumn(SqlConnection& connection, const QString& table, const QString& column) {
    return DeclaredType(connection, table, column).has_value();
}

}  // namespace host
