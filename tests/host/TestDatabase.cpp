// Queries on real SQLite files: order, transactions, failures, and two programs on one file.
#include <sys/resource.h>

#include <QFile>
#include <csignal>
#include <mutex>
#include <thread>

#include "host/Database.h"
#include "host/Dictionary.h"
#include "host/Schema.h"
#include "tests/host/Support.h"

namespace {

using host::OnMissing;
using namespace std::chrono_literals;

class DatabaseTest : public testing::Test {
  protected:
    std::unique_ptr<host::Database> Open(std::chrono::milliseconds busyTimeout = 50ms) {
        return std::make_unique<host::Database>(folder.Database(), OnMissing::Create, Logger(),
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
    // As another program sees the file.
    int RowsInFile() {
        host::SqlConnection other(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse);
        QSqlQuery query = other.Run("SELECT count(*) FROM BDGROUP");
        query.next();
        return query.value(0).toInt();
    }
    static std::shared_ptr<CKVQuery> Insert(const QString& group) {
        return Query("INSERT INTO BDGROUP VALUES (?, 1)", {group});
    }

    Folder folder;

  private:
    std::mutex mutex;
    QStringList log;
};

TEST_F(DatabaseTest, ReadSeesEveryWriteSubmittedBeforeIt) {
    auto database = Open();
    for (int i = 0; i < 1000; ++i) {
        database->ExecuteAsync(Insert(QString::number(i)));
        const auto response = database->ExecuteSync(Query("select count(*) from BDGROUP"));
        ASSERT_EQ(response.getSingleResult().toInt(), i + 1);
    }
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

TEST_F(DatabaseTest, QueueIsRunAndCommittedBeforeTheEnd) {
    auto database = Open();
    for (int i = 0; i < 5000; ++i) database->ExecuteAsync(Insert(QString::number(i)));
    database.reset();
    EXPECT_EQ(RowsInFile(), 5000);
}

TEST_F(DatabaseTest, BurstIsOneTransactionThatCommitEnds) {
    auto database = Open();
    database->Open();
    database->ExecuteAsync(Insert("a"));
    database->ExecuteAsync(Insert("b"));
    database->Commit();
    EXPECT_EQ(RowsInFile(), 2);
}

TEST_F(DatabaseTest, QueueThatFallsIdleCommitsByItself) {
    auto database = Open();
    database->ExecuteSync(Insert("a"));
    // Another program gets the right to write only when this one has let go of it.
    host::SqlConnection other(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse);
    host::SqlTransaction transaction(other);
    EXPECT_EQ(RowsInFile(), 1);
}

TEST_F(DatabaseTest, FailedQueryIsLoggedWithItsValuesAndTheOthersStand) {
    auto database = Open();
    database->ExecuteAsync(Insert("a"));
    EXPECT_TRUE(database->ExecuteSync(Query("INSERT INTO NOWHERE VALUES (?, ?)", {"x", QVariant()}))
                    .failed());
    database->ExecuteAsync(Insert("b"));
    EXPECT_TRUE(database->ExecuteSync(Query("select * from NOWHERE where A = ?", {7})).failed());
    database.reset();
    EXPECT_EQ(RowsInFile(), 2);
    ASSERT_EQ(Log().size(), 2);
    EXPECT_TRUE(Log()[0].contains("INSERT INTO NOWHERE VALUES (?, ?); values: \"x\", NULL"));
    EXPECT_TRUE(Log()[1].contains("select * from NOWHERE where A = ?; values: \"7\""));
}

TEST_F(DatabaseTest, FailureThatLosesTheTransactionLogsEveryLostWrite) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("first")).succeeded());
    database->Commit();
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlim_t size = QFile(folder.File("dictionary.sqlite")).size();
    const rlimit limit{size, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);  // as a disk without room for one page more
    const QString large(5000, 'x');
    for (int i = 0; i < 3; ++i) database->ExecuteAsync(Insert(large + QString::number(i)));
    database->Commit();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    database->ExecuteAsync(Insert("after"));
    database.reset();

    ASSERT_EQ(Log().size(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Log()[i].contains(large + QString::number(i)));
        EXPECT_TRUE(Log()[i].contains("check the disk")) << Log()[i].left(200).toStdString();
    }
    EXPECT_EQ(RowsInFile(), 2);
}

TEST_F(DatabaseTest, LockedFileFailsTheWriteAfterItsTimeAndIsFoundAgain) {
    auto database = Open();
    database->Open();
    {
        host::SqlConnection other(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse);
        host::SqlTransaction transaction(other);
        for (int i = 0; i < 50; ++i) database->ExecuteAsync(Insert(QString::number(i)));
        EXPECT_TRUE(database->ExecuteSync(Query("select * from BDGROUP")).succeeded());
        transaction.Commit();
    }
    EXPECT_EQ(Log().size(), 50);
    EXPECT_TRUE(Log().first().contains("locked by another program"));
    EXPECT_TRUE(Log().first().contains("values: \"0\""));
    EXPECT_TRUE(database->ExecuteSync(Insert("later")).succeeded());
}

TEST_F(DatabaseTest, WriteWaitsForAnotherProgramToFinish) {
    auto database = Open(10s);
    database->Open();
    auto other = std::make_unique<host::Database>(folder.Database(), OnMissing::Refuse, Logger());
    other->ExecuteSync(Insert("other"));  // its transaction stays open until it is idle
    EXPECT_TRUE(database->ExecuteSync(Insert("this")).succeeded());
    database.reset();
    other.reset();
    EXPECT_EQ(RowsInFile(), 2);
}

TEST_F(DatabaseTest, ReadOnlyFileCanBeReadAndWritesAreLogged) {
    Open()->ExecuteSync(Insert("a"));
    const ReadOnly file(folder.File("dictionary.sqlite"));
    const OrdinaryUser user;
    auto database = Open();
    EXPECT_EQ(database->ExecuteSync(Query("select count(*) from BDGROUP")).getSingleResult(), 1);
    EXPECT_TRUE(database->ExecuteSync(Insert("b")).failed());
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("cannot be written")) << Log()[0].toStdString();
    EXPECT_TRUE(Log()[0].contains("values: \"b\""));
}

TEST_F(DatabaseTest, FileThatWasRemovedTakesNoWriteInSilence) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("a")).succeeded());
    database->Commit();
    QFile::remove(folder.File("dictionary.sqlite"));
    database->ExecuteAsync(Insert("lost"));
    database.reset();
    ASSERT_GE(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("\"lost\""));
}

TEST_F(DatabaseTest, DatabaseThatCannotBeOpenedFailsQueriesWithTheirValues) {
    const QString url = "sqlite:" + folder.File("missing/dictionary.sqlite");
    host::Database database(url, OnMissing::Create, Logger());
    EXPECT_NE(ErrorOf([&] { database.Open(); }), "");
    EXPECT_TRUE(database.ExecuteSync(Insert("typed")).failed());
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("the folder"));
    EXPECT_TRUE(Log()[0].contains("\"typed\"")) << Log()[0].toStdString();
    EXPECT_EQ(database.GetColumnSize("BDTRANSLATOR", "LANGUAGE1"), 0);
}

TEST_F(DatabaseTest, QueryThatThrowsLeavesTheQueueAlive) {
    struct Throwing : TextQuery {
        using TextQuery::TextQuery;
        QSqlQuery Prepare(QSqlDatabase) const override { throw std::out_of_range("no such text"); }
    };
    auto database = Open();
    auto future = database->ExecuteAsync(std::make_shared<Throwing>("insert"));
    EXPECT_TRUE(future.result().failed());
    EXPECT_TRUE(database->ExecuteSync(Insert("a")).succeeded());
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("no such text"));
}

TEST_F(DatabaseTest, DeclaredLengths) {
    host::Dictionary(folder.Database(), OnMissing::Create).AddLanguages({"Português", "English"});
    auto database = Open();
    const struct {
        const char *table, *column;
        int size;
    } cases[] = {{"BDTRANSLATOR", "LANGUAGE1", 250}, {"BDTRANSLATOR", "language2", 250},
                 {"BDTRANSLATOR", "LANGUAGE3", 0},   {"BDTRANSLATOR", "TRANS_KEY", 0},
                 {"BDLANGUAGE", "LANG_KEY", 10},     {"NOWHERE", "LANGUAGE1", 0}};
    for (const auto& c : cases) EXPECT_EQ(database->GetColumnSize(c.table, c.column), c.size);
}

TEST_F(DatabaseTest, PageGroupStatementFindsEachNameInOneTable) {
    auto database = Open();
    database->ExecuteAsync(Query("INSERT INTO BDPAGE (PAGE_KEY) VALUES (7)"));
    database->ExecuteAsync(Query("INSERT INTO BDGROUP VALUES ('A', 7)"));
    database->ExecuteAsync(Query("INSERT INTO BDPAGEBLOCKS VALUES (7, '2', '3', 'de.dxf')"));
    const auto response = database->ExecuteSync(
        Query("SELECT PATH FROM BDPAGE, BDGROUP, BDPAGEBLOCKS WHERE BDPAGEBLOCKS.PAGE_KEY=PAGE AND "
              "BDPAGE.PAGE_KEY=PAGE AND GROUP_KEY = ? and LANG = ? and BLOCK = ?",
              {"A", "2", "3"}));
    EXPECT_EQ(response.getSingleResult().toString(), "de.dxf")
        << response.getError().text().toStdString();
}

std::chrono::nanoseconds TimeOf(const std::function<void()>& work) {
    auto best = std::chrono::nanoseconds::max();
    for (int i = 0; i < 3; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        best = std::min<std::chrono::nanoseconds>(best, std::chrono::steady_clock::now() - start);
    }
    return best;
}

// Every command begins with reading the whole dictionary.
TEST_F(DatabaseTest, HundredThousandTermsCostLittleMoreThanTheDriverAsks) {
    host::Dictionary dictionary(folder.Database(), OnMissing::Create);
    const QStringList languages{"a", "b", "c", "d", "e"};
    dictionary.AddLanguages(languages);
    std::vector<QStringList> rows;
    for (int i = 0; i < 100000; ++i) {
        const QString text = QStringLiteral("Termo de teste %1").arg(i);
        rows.push_back({text, text + "b", text + "c", text + "d", text + "e"});
    }
    dictionary.Import(languages, rows);
    const QString statement =
        "select TRANS_KEY, LANGUAGE1, LANGUAGE2, LANGUAGE3, LANGUAGE4, LANGUAGE5 "
        "from BDTRANSLATOR order by TRANS_KEY";

    auto database = Open();
    const auto ours = TimeOf([&] {
        auto response = database->ExecuteSync(Query(statement));
        ASSERT_EQ(response.getResult().size(), 100000u);
        EXPECT_EQ(response.getResult().back()[5].toString(), "Termo de teste 99999e");
    });
    host::SqlConnection direct(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse);
    const auto driver = TimeOf([&] {
        QSqlQuery query = direct.Run(statement);
        qsizetype units = 0;
        while (query.next()) {
            for (int column = 0; column < 6; ++column)
                units += query.value(column).toString().size();
        }
        EXPECT_GT(units, 10000000);
    });
    EXPECT_LT(ours, 4 * driver);
}

}  // namespace
