// A database in a file that fails while it is open: full, read-only, removed, replaced.
#include <QFile>

#include "tests/host/DatabaseTest.h"

namespace {

using host::OnMissing;

class DatabaseFile : public DatabaseTest {
  protected:
    // A row whose transaction is still open when the work is done.
    static std::shared_ptr<CKVQuery> InsertAndThen(const QString& group,
                                                   std::function<void()> work) {
        struct Working : TextQuery {
            using TextQuery::TextQuery;
            CKVQueryResponse Execute(QSqlDatabase database) const override {
                CKVQueryResponse response = TextQuery::Execute(database);
                if (const auto first = std::exchange(work, {})) first();
                return response;
            }
            mutable std::function<void()> work;
        };
        auto query =
            std::make_shared<Working>("INSERT INTO BDGROUP VALUES (?, 1)", QVariantList{group});
        query->work = std::move(work);
        return query;
    }
    void RemoveFile() { QFile::remove(folder.File("dictionary.sqlite")); }
    void ReplaceFile() {
        const QString other = folder.File("other.sqlite");
        host::Database("sqlite:" + other, OnMissing::Create, Logger()).ExecuteSync(Insert("new"));
        ASSERT_EQ(std::rename(other.toUtf8(), folder.File("dictionary.sqlite").toUtf8()), 0);
    }
};
INSTANTIATE_TEST_SUITE_P(File, DatabaseFile, testing::Values(Where::File));

TEST_P(DatabaseFile, FailureThatLosesTheTransactionLogsEveryLostWrite) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("first")).succeeded());
    database->Commit();
    const QString large(5000, 'x');
    {
        const FullDisk disk(QFile(folder.File("dictionary.sqlite")).size());
        for (int i = 0; i < 3; ++i) database->ExecuteAsync(Insert(large + QString::number(i)));
        database->Commit();
    }
    database->ExecuteAsync(Insert("after"));
    database.reset();

    ASSERT_EQ(Log().size(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Log()[i].contains(large + QString::number(i)));
        EXPECT_TRUE(Log()[i].contains("check the disk")) << Log()[i].left(200).toStdString();
    }
    EXPECT_EQ(StoredGroups().size(), 2);
}

TEST_P(DatabaseFile, ReadOnlyFileCanBeReadAndWritesAreLogged) {
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

TEST_P(DatabaseFile, FileThatWasRemovedTakesNoWriteInSilence) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("a")).succeeded());
    database->Commit();
    RemoveFile();
    database->ExecuteAsync(Insert("lost"));
    database.reset();
    ASSERT_GE(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("\"lost\""));
}

TEST_P(DatabaseFile, FileThatIsRemovedBeforeTheCommitTakesNoWriteInSilence) {
    auto database = Open();
    database->ExecuteAsync(InsertAndThen("lost", [this] { RemoveFile(); }));
    database.reset();
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("\"lost\""));
}

TEST_P(DatabaseFile, CommitWaitsForAReaderAndStandsInTheLogWhenThatNeverEnds) {
    for (const bool ends : {true, false}) {
        auto database = Open();
        database->ExecuteSync(Insert(ends ? "1" : "3"));
        database->Commit();
        host::SqlConnection other(host::ParseDatabaseUrl(Url()), OnMissing::Refuse);
        std::optional<QSqlQuery> reader = other.Run("SELECT GROUP_KEY FROM BDGROUP");
        ASSERT_TRUE(reader->next());
        database->ExecuteAsync(Insert(ends ? "2" : "4"));
        database->Commit();
        if (ends) {
            reader.reset();
            host::SqlTransaction transaction(other);  // granted once the burst is committed
        }
        EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
        database.reset();
    }
    EXPECT_EQ(StoredGroups(), (QStringList{"1", "2", "3"}));
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("locked by another program")) << Log()[0].toStdString();
    EXPECT_TRUE(Log()[0].contains("\"4\""));
}

TEST_P(DatabaseFile, DatabaseThatCannotBeOpenedFailsQueriesWithTheirValues) {
    const QString url = "sqlite:" + folder.File("missing/dictionary.sqlite");
    host::Database database(url, OnMissing::Create, Logger());
    EXPECT_NE(ErrorOf([&] { database.Open(); }), "");
    EXPECT_TRUE(database.ExecuteSync(Insert("typed")).failed());
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("the folder"));
    EXPECT_TRUE(Log()[0].contains("\"typed\"")) << Log()[0].toStdString();
    EXPECT_EQ(database.GetColumnSize("BDTRANSLATOR", "LANGUAGE1"), 0);
}

// As a backup that is put back, or a folder that is synchronised, does it.
TEST_P(DatabaseFile, FileThatWasReplacedIsOpenedAnewAndTakesWhatWasNotCommitted) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("old")).succeeded());
    database->Commit();
    ReplaceFile();
    database->ExecuteAsync(InsertAndThen("written", [this] { ReplaceFile(); }));
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"new", "written"}));
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

}  // namespace
