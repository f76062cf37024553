// A dictionary's database with its log, and rows to write.
#pragma once

#include <mutex>

#include "host/Database.h"
#include "tests/host/Support.h"

class DatabaseTest : public DictionaryPlace {
  protected:
    std::unique_ptr<host::Database> Open(std::chrono::milliseconds busyTimeout = kShort) {
        return std::make_unique<host::Database>(Url(), host::OnMissing::Create, Logger(),
                                                busyTimeout);
    }
    host::Database::LogLine Logger() {
        return [this](const QString& line) {
            std::lock_guard lock(mutex);
            log << line;
        };
    }
    QStringList Log() {
        std::lock_guard lock(mutex);
        return log;
    }
    // As another program sees them.
    QStringList StoredGroups() {
        host::SqlConnection other(host::ParseDatabaseUrl(Url()), host::OnMissing::Refuse);
        QSqlQuery query = other.Run("SELECT GROUP_KEY FROM BDGROUP ORDER BY GROUP_KEY");
        QStringList groups;
        while (query.next()) groups << query.value(0).toString();
        return groups;
    }
    static std::shared_ptr<CKVQuery> Insert(const QString& group) {
        return Query("INSERT INTO BDGROUP VALUES (?, 1)", {group});
    }
    static int CountOf(host::Database& database) {
        return database.ExecuteSync(Query("select count(*) from BDGROUP"))
            .getSingleResult()
            .toInt();
    }

    static constexpr std::chrono::milliseconds kShort{50};
    static constexpr std::chrono::milliseconds kLong{30000};

  private:
    std::mutex mutex;
    QStringList log;
};
