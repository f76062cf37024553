// Queries on a real database, in a file and on a server: order, transactions, failures, and two
// programs at a time.
#include "host/Dictionary.h"
#include "tests/host/DatabaseTest.h"

namespace {

using host::OnMissing;

ON_FILE_AND_SERVER(DatabaseTest);

TEST_P(DatabaseTest, ReadSeesEveryWriteSubmittedBeforeIt) {
    auto database = Open();
    for (int i = 0; i < 1000; ++i) {
        database->ExecuteAsync(Insert(QString::number(i)));
        const auto response = database->ExecuteSync(Query("select count(*) from BDGROUP"));
        ASSERT_EQ(response.getSingleResult().toInt(), i + 1);
    }
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

TEST_P(DatabaseTest, QueueIsRunAndCommittedBeforeTheEnd) {
    auto database = Open();
    for (int i = 0; i < 5000; ++i) database->ExecuteAsync(Insert(QString::number(i)));
    database.reset();
    EXPECT_EQ(StoredGroups().size(), 5000);
}

TEST_P(DatabaseTest, BurstIsOneTransactionThatCommitEnds) {
    auto database = Open();
    database->Open();
    database->ExecuteAsync(Insert("a"));
    database->ExecuteAsync(Insert("b"));
    database->Commit();
    EXPECT_EQ(StoredGroups().size(), 2);
}

TEST_P(DatabaseTest, QueueThatFallsIdleCommitsByItself) {
    auto database = Open();
    database->ExecuteSync(Insert("a"));
    // Another program gets the right to write only when this one has let go of it.
    host::SqlConnection other(host::ParseDatabaseUrl(Url()), OnMissing::Refuse);
    host::SqlTransaction transaction(other);
    EXPECT_EQ(StoredGroups().size(), 1);
}

TEST_P(DatabaseTest, FailedQueryIsLoggedWithItsValuesAndTheOthersStand) {
    auto database = Open();
    database->ExecuteAsync(Insert("a"));
    EXPECT_TRUE(database->ExecuteSync(Query("INSERT INTO NOWHERE VALUES (?, ?)", {"x", QVariant()}))
                    .failed());
    database->ExecuteAsync(Insert("b"));
    EXPECT_TRUE(database->ExecuteSync(Query("select * from NOWHERE where A = ?", {7})).failed());
    database.reset();
    EXPECT_EQ(StoredGroups().size(), 2);
    ASSERT_EQ(Log().size(), 2);
    EXPECT_TRUE(Log()[0].contains("INSERT INTO NOWHERE VALUES (?, ?); values: \"x\", NULL"));
    EXPECT_TRUE(Log()[1].contains("select * from NOWHERE where A = ?; values: \"7\""));
}

TEST_P(DatabaseTest, LockedFileFailsTheWriteAfterItsTimeAndIsFoundAgain) {
    auto database = Open();
    database->Open();
    {
        host::SqlConnection other(host::ParseDatabaseUrl(Url()), OnMissing::Refuse);
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

TEST_P(DatabaseTest, WriteWaitsForAnotherProgramToFinish) {
    auto database = Open(kLong);
    database->Open();
    auto other = std::make_unique<host::Database>(Url(), OnMissing::Refuse, Logger());
    other->ExecuteSync(Insert("other"));  // its transaction stays open until it is idle
    EXPECT_TRUE(database->ExecuteSync(Insert("this")).succeeded());
    database.reset();
    other.reset();
    EXPECT_EQ(StoredGroups().size(), 2);
}

TEST_P(DatabaseTest, QueryThatThrowsLeavesTheQueueAlive) {
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
    EXPECT_TRUE(QSqlDatabase::connectionNames().filter("memory").isEmpty());
}

TEST_P(DatabaseTest, DeclaredLengths) {
    host::Dictionary(Url(), OnMissing::Create).AddLanguages({"Português", "English"});
    auto database = Open();
    const struct {
        const char *table, *column;
        int size;
    } cases[] = {{"BDTRANSLATOR", "LANGUAGE1", 250}, {"BDTRANSLATOR", "language2", 250},
                 {"BDTRANSLATOR", "LANGUAGE3", 0},   {"BDTRANSLATOR", "TRANS_KEY", 0},
                 {"BDLANGUAGE", "LANG_KEY", 10},     {"NOWHERE", "LANGUAGE1", 0}};
    for (const auto& c : cases) EXPECT_EQ(database->GetColumnSize(c.table, c.column), c.size);
}

TEST_P(DatabaseTest, PageGroupStatementFindsEachNameInOneTable) {
    auto database = Open();
    database->ExecuteAsync(Query("INSERT INTO BDPAGE (PAGE_DESCR) VALUES ('first')"));
    database->ExecuteAsync(Query("INSERT INTO BDGROUP VALUES ('A', 1)"));
    database->ExecuteAsync(Query("INSERT INTO BDPAGEBLOCKS VALUES (1, '2', '3', 'de.dxf')"));
    const auto response = database->ExecuteSync(
        Query("SELECT PATH FROM BDPAGE, BDGROUP, BDPAGEBLOCKS WHERE BDPAGEBLOCKS.PAGE_KEY=PAGE AND "
              "BDPAGE.PAGE_KEY=PAGE AND GROUP_KEY = ? and LANG = ? and BLOCK = ?",
              {"A", "2", "3"}));
    EXPECT_EQ(response.getSingleResult().toString(), "de.dxf")
        << response.getError().text().toStdString();
}

// Two programs that write the same rows in opposite orders, reading in between, take turns.
TEST_P(DatabaseTest, TwoProgramsAtATimeLoseNothingAndDoNotWaitForEachOtherForEver) {
    auto first = Open(kLong);
    auto second = Open(kLong);
    first->ExecuteAsync(Insert("a"));
    first->ExecuteAsync(Insert("b"));
    first->Commit();
    const auto rename = [](host::Database& database, const char* group) {
        database.ExecuteAsync(
            Query("UPDATE BDGROUP SET PAGE = PAGE + 1 WHERE GROUP_KEY = ?", {group}));
        database.ExecuteAsync(Query("select * from BDGROUP"));
    };
    for (int i = 0; i < 100; ++i) {
        for (const char* group : {"a", "b"}) rename(*first, group);
        for (const char* group : {"b", "a"}) rename(*second, group);
        if (i % 10 == 0) first->Commit();
        if (i % 10 == 5) second->Commit();
    }
    first->Commit();
    second->Commit();
    const auto pages = first->ExecuteSync(Query("select PAGE from BDGROUP"));
    ASSERT_EQ(pages.getResult().size(), 2u);
    for (const auto& row : pages.getResult()) EXPECT_EQ(row[0].toInt(), 201);
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

TEST_P(DatabaseTest, LaterSaveDoesNotBringBackWhatAnotherProgramRemoved) {
    host::Dictionary(Url(), OnMissing::Create).AddLanguage("Português");
    auto first = Open();
    auto second = Open();
    const auto insert = Query("INSERT INTO BDTRANSLATOR (LANGUAGE1) VALUES (?)", {"Motor"});
    first->ExecuteSync(insert);
    first->Commit();
    second->ExecuteSync(Query("DELETE FROM BDTRANSLATOR WHERE TRANS_KEY = ?", {1}));
    second->Commit();
    const auto update =
        Query("update BDTRANSLATOR SET LANGUAGE1 = ? where TRANS_KEY = ?", {"x", 1});
    EXPECT_TRUE(first->ExecuteSync(update).succeeded());
    const QString keys = "select TRANS_KEY from BDTRANSLATOR order by TRANS_KEY";
    EXPECT_TRUE(first->ExecuteSync(Query(keys)).getResult().empty());
    first->ExecuteSync(insert);
    EXPECT_EQ(first->ExecuteSync(Query(keys)).getSingleResult().toInt(), 2);
}

}  // namespace
