// A database in a file that fails while it is open: full, read-only, removed, replaced.
#include <QFile>

#include "tests/host/DatabaseTest.h"

namespace {

using host::OnMissing;

class DatabaseFile : public DatabaseTest {};
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
    QFile::remove(folder.File("dictionary.sqlite"));
    database->ExecuteAsync(Insert("lost"));
    database.reset();
    ASSERT_GE(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("\"lost\""));
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
TEST_P(DatabaseFile, FileThatWasReplacedIsOpenedAnew) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("old")).succeeded());
    database->Commit();
    const QString other = folder.File("other.sqlite");
    { host::Database("sqlite:" + other, OnMissing::Create, Logger()).ExecuteSync(Insert("new")); }
    ASSERT_EQ(std::rename(other.toUtf8(), folder.File("dictionary.sqlite").toUtf8()), 0);
    database->ExecuteAsync(Insert("written"));
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"new", "written"}));
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

}  // namespace
