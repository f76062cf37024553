// SQLite: a dictionary in a file, for one user or for several programs on one machine.
#include <sys/stat.h>

#include <QDir>
#include <QFileInfo>
#include <optional>

#include "host/Error.h"
#include "host/SqlDialect.h"

namespace host {

namespace {

struct KnownReason {
    int code;  // primary result code of SQLite
    const char* text;
};

constexpr int kBusy = 5;

constexpr KnownReason kReasons[] = {
    {kBusy, "it is locked by another program; close that program or try again"},
    {6, "it is locked by another program; close that program or try again"},
    {8, "it cannot be written, it is read-only or was moved; check the file and its permissions"},
    {10, "the file cannot be read or written; check the disk"},
    {11, "the file is damaged; restore it from a copy"},
    {13, "the disk is full; free some space"},
    {14, "the file cannot be opened; check the folder and the permissions"},
    {26, "the file is no SQLite database; name another file"},
};

int CodeOf(const QSqlError& error) { return error.nativeErrorCode().toInt() & 0xff; }

// Which file a name leads to; nothing when it leads nowhere.
struct FileIdentity {
    dev_t device;
    ino_t inode;
    bool operator==(const FileIdentity&) const = default;
};

std::optional<FileIdentity> IdentityOf(const QString& file) {
    struct stat status;
    if (::stat(QFile::encodeName(file).constData(), &status) != 0) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

class SqliteDialect : public SqlDialect {
  public:
    explicit SqliteDialect(const DatabaseUrl& url) : url(url) {}

    QString Driver() const override { return QStringLiteral("QSQLITE"); }
    QString Package() const override { return QStringLiteral("libqt6sql6-sqlite"); }
    void CheckPlace(OnMissing onMissing) const override;
    void SetAddress(QSqlDatabase& database) const override { database.setDatabaseName(url.file); }
    QStringList Greeting() const override { return {}; }
    QString SetLockTimeout(std::chrono::milliseconds timeout) const override {
        return QStringLiteral("PRAGMA busy_timeout = %1").arg(timeout.count());
    }
    void RememberPlace() override { opened = IdentityOf(url.file); }
    // A file that was removed, or had another put in its place, can be read on as if nothing were.
    bool HasMoved() const override { return opened && IdentityOf(url.file) != opened; }
    QString Reason(const QSqlError& error) const override;

    QStringList Begin() const override { return {QStringLiteral("BEGIN IMMEDIATE")}; }
    QString WasCommitted(const QString&) const override { return {}; }
    bool MayCommitLater(const QSqlError& error) const override { return CodeOf(error) == kBusy; }

    QString KeyType() const override { return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT"); }
    QString ApplicationId() const override { return QStringLiteral("PRAGMA application_id"); }
    QString SchemaVersion() const override { return QStringLiteral("PRAGMA user_version"); }
    QString TableCount() const override {
        return QStringLiteral("SELECT count(*) FROM sqlite_master");
    }
    QStringList BeforeFirstTable() const override {
        // As text is in memory: UTF-8 in the file would lose what a drawing's code page cannot
        // decode.
        return {QStringLiteral("PRAGMA encoding = 'UTF-16le'")};
    }
    QStringList AfterFirstTables() const override { return {}; }
    QStringList Mark(int applicationId, int version) const override {
        return {QStringLiteral("PRAGMA application_id = %1").arg(applicationId),
                QStringLiteral("PRAGMA user_version = %1").arg(version)};
    }
    QString ColumnType() const override {
        return QStringLiteral(
            "SELECT type FROM pragma_table_info(:table) WHERE name = :column COLLATE NOCASE");
    }

  private:
    DatabaseUrl url;
    std::optional<FileIdentity> opened;
};

void SqliteDialect::CheckPlace(OnMissing onMissing) const {
    const QFileInfo file(url.file);
    if (!QFileInfo(file.absolutePath()).isDir()) {
        throw Error(QStringLiteral("database %1: the folder %2 does not exist; create it or name "
                                   "another file")
                        .arg(url.text, file.absolutePath()));
    }
    if (file.isDir()) {
        throw Error(QStringLiteral("database %1: this is a folder; name a file").arg(url.text));
    }
    if (onMissing == OnMissing::Refuse && !file.exists()) {
        throw Error(
            QStringLiteral("database %1: there is no such file; create it with kelvara db init "
                           "or name another one")
                .arg(url.text));
    }
}

QString SqliteDialect::Reason(const QSqlError& error) const {
    const int code = CodeOf(error);
    for (const KnownReason& known : kReasons) {
        if (known.code == code) return QString::fromLatin1(known.text);
    }
    return error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
}

}  // namespace

std::unique_ptr<SqlDialect> MakeSqliteDialect(const DatabaseUrl& url) {
    return std::make_unique<SqliteDialect>(url);
}

}  // namespace host
