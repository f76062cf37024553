// PostgreSQL: a dictionary on a server, shared by a team.
#include <QSqlQuery>
#include <algorithm>

#include "host/Error.h"
#include "host/SqlDialect.h"

namespace host {

namespace {

// Of the right to write, which one program has at a time. Any number that nobody else takes will
// do.
constexpr int kWriteLock = 0x4B564449;
// A program that hangs in the middle of a transaction must not keep the others from writing.
constexpr std::chrono::milliseconds kLongestPause{60000};
// In seconds; a server that has gone without a word is given up after the second one.
constexpr int kConnectTimeout = 5;
constexpr int kSilenceTimeout = 20;

struct KnownReason {
    const char* code;  // beginning of an SQLSTATE
    const char* text;
};

constexpr KnownReason kReasons[] = {
    {"22001", "a text is longer than its column; shorten it"},
    {"25006", "it cannot be written, it is read-only; ask the keeper of the server"},
    {"42501", "the user may not do that; ask the keeper of the server for the right"},
    {"53100", "the disk of the server is full; tell the keeper of the server"},
    {"53300", "the server has no connection left; close a program or try again"},
    {"55P03", "it is locked by another program; close that program or try again"},
};

// A connection that fails has no code, only words; in another language the advice is the last one.
constexpr KnownReason kAdvice[] = {
    {"does not exist", "name another one, or have the keeper of the server create it"},
    {"authentication failed", "check the user and the password"},
    {"no password supplied", "give one in the address, in PGPASSWORD or in ~/.pgpass"},
    {"pg_hba.conf", "ask the keeper of the server to let this user in"},
    {"invalid", "check the address"},
    {"", "check the address, and that the server runs and can be reached"},
};

// "ERROR:  what\nLINE 1: ..." and "connection to ... failed: FATAL:  what" as one line.
QString OneLine(const QString& text) {
    QString line = text.section(u'\n', 0, 0).simplified();
    if (line.startsWith(QLatin1String("ERROR: "))) line.remove(0, 7);
    return line;
}

class PostgresDialect : public SqlDialect {
  public:
    explicit PostgresDialect(const DatabaseUrl& url) : url(url) {}

    QString Driver() const override { return QStringLiteral("QPSQL"); }
    QString Package() const override { return QStringLiteral("libqt6sql6-psql"); }
    void CheckPlace(OnMissing) const override {}
    void SetAddress(QSqlDatabase& database) const override;
    QStringList Greeting() const override;
    QString SetLockTimeout(std::chrono::milliseconds timeout) const override {
        // 0 would be for ever.
        return QStringLiteral("SET lock_timeout = %1").arg(std::max<qint64>(timeout.count(), 1));
    }
    bool Answers(const QSqlDatabase& database) const override;
    QString Reason(const QSqlError& error) const override;

    QStringList Begin() const override {
        return {QStringLiteral("BEGIN"),
                QStringLiteral("SELECT pg_advisory_xact_lock(%1)").arg(kWriteLock),
                QStringLiteral("SELECT txid_current()")};
    }
    QString WasCommitted(const QString& transaction) const override {
        return QStringLiteral("SELECT CASE txid_status(%1) WHEN 'committed' THEN 1 ELSE 0 END")
            .arg(transaction);
    }

    QString KeyType() const override {
        return QStringLiteral("INTEGER GENERATED ALWAYS AS IDENTITY PRIMARY KEY");
    }
    QString ApplicationId() const override { return NumberInMark("application ([0-9]+), version"); }
    QString SchemaVersion() const override {
        return NumberInMark("application [0-9]+, version ([0-9]+)");
    }
    QString TableCount() const override;
    QStringList BeforeFirstTable() const override;
    QStringList AfterFirstTables() const override;
    QStringList Mark(int applicationId, int version) const override {
        return {QStringLiteral("COMMENT ON TABLE BDTRANSLATOR IS 'application %1, version %2'")
                    .arg(applicationId)
                    .arg(version)};
    }
    QString ColumnType() const override;

  private:
    // Selects the number that a pattern finds in what Mark has written, 0 where it finds none.
    static QString NumberInMark(const char* pattern);

    DatabaseUrl url;
};

void PostgresDialect::SetAddress(QSqlDatabase& database) const {
    database.setHostName(url.host);
    database.setPort(url.port);
    database.setUserName(url.user);
    database.setPassword(url.password);
    database.setDatabaseName(url.database);
    // Of an option that comes twice the last one counts.
    database.setConnectOptions(
        QStringLiteral("application_name=kelvara connect_timeout=%1 tcp_user_timeout=%2 "
                       "keepalives_idle=%1 keepalives_interval=%1 %3")
            .arg(kConnectTimeout)
            .arg(kSilenceTimeout * 1000)
            .arg(url.options));
}

QStringList PostgresDialect::Greeting() const {
    return {
        QStringLiteral("SET idle_in_transaction_session_timeout = %1").arg(kLongestPause.count())};
}

bool PostgresDialect::Answers(const QSqlDatabase& database) const {
    if (!database.isOpen()) return false;
    QSqlQuery probe(database);
    if (probe.exec(QStringLiteral("SELECT 1"))) return true;
    // Without a code nobody has answered; with these the server has taken its leave.
    const QString code = probe.lastError().nativeErrorCode();
    return !code.isEmpty() && !code.startsWith(QLatin1String("57P")) &&
           !code.startsWith(QLatin1String("08"));
}

QString PostgresDialect::Reason(const QSqlError& error) const {
    const QString code = error.nativeErrorCode();
    for (const KnownReason& known : kReasons) {
        if (code == QLatin1String(known.code)) return QString::fromLatin1(known.text);
    }
    const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    if (error.type() != QSqlError::ConnectionError) return OneLine(text);
    const auto advice = std::find_if(std::begin(kAdvice), std::end(kAdvice), [&](const auto& each) {
        return text.contains(QLatin1String(each.code));
    });
    return OneLine(text) + QLatin1String("; ") + QString::fromLatin1(advice->text);
}

// In the schema that the statements without a schema's name work in. What an extension brought
// belongs to nobody's data.
QString PostgresDialect::TableCount() const {
    return QStringLiteral(
        "SELECT count(*) FROM pg_class WHERE relnamespace = to_regnamespace(current_schema()) AND "
        "relkind IN ('r', 'p') AND NOT EXISTS (SELECT 1 FROM pg_depend WHERE objid = pg_class.oid "
        "AND deptype = 'e')");
}

QStringList PostgresDialect::BeforeFirstTable() const {
    return {QStringLiteral(
        "DO $$ BEGIN IF getdatabaseencoding() <> 'UTF8' THEN RAISE 'its encoding is %, which "
        "cannot "
        "hold every text; create one with the encoding UTF8', getdatabaseencoding(); END IF; END "
        "$$")};
}

// The languages are sorted by their keys as numbers. SQLite takes any text for one, here a single
// other key would make the statement fail.
QStringList PostgresDialect::AfterFirstTables() const {
    return {
        QStringLiteral("ALTER TABLE BDLANGUAGE ADD CONSTRAINT LANG_KEY_IS_NUMBER CHECK (LANG_KEY ~ "
                       "'^[0-9]{1,9}$')")};
}

QString PostgresDialect::NumberInMark(const char* pattern) {
    return QStringLiteral(
               "SELECT coalesce(CAST(substring(obj_description(to_regclass('bdtranslator'), "
               "'pg_class') from '%1') AS INTEGER), 0)")
        .arg(QLatin1String(pattern));
}

QString PostgresDialect::ColumnType() const {
    return QStringLiteral(
        "SELECT format_type(atttypid, atttypmod) FROM pg_attribute WHERE attrelid = "
        "to_regclass(lower(CAST(:table AS TEXT))) AND attname = lower(CAST(:column AS TEXT)) AND "
        "NOT attisdropped");
}

}  // namespace

std::unique_ptr<SqlDialect> MakePostgresDialect(const DatabaseUrl& url) {
    return std::make_unique<PostgresDialect>(url);
}

}  // namespace host
