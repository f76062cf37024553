// A server that fails while the dictionary is open, and what only a server can refuse.
#include "host/Dictionary.h"
#include "tests/host/DatabaseTest.h"
#include "tests/support/PostgresServer.h"

namespace {

using host::Dictionary;
using host::OnMissing;

class DatabaseServer : public DatabaseTest {
  protected:
    PostgresServer& server = PostgresServer::Shared();
};
INSTANTIATE_TEST_SUITE_P(Server, DatabaseServer, testing::Values(Where::Server));

// Ends its own connection when it runs for the first time, as a server does that is restarted.
class Disconnect : public TextQuery {
  public:
    Disconnect() : TextQuery("select 1") {}
    QSqlQuery Prepare(QSqlDatabase database) const override {
        if (!std::exchange(done, true)) {
            QSqlQuery(database).exec("SELECT pg_terminate_backend(pg_backend_pid())");
        }
        return TextQuery::Prepare(database);
    }

  private:
    mutable bool done = false;
};

TEST_P(DatabaseServer, ServerThatWasRestartedIsFoundAgain) {
    auto database = Open(kLong);
    ASSERT_TRUE(database->ExecuteSync(Insert("a")).succeeded());
    database->Commit();
    server.Restart();
    EXPECT_EQ(CountOf(*database), 1);
    // Wherever in the burst the server goes away, and comes back.
    for (const char* group : {"b", "c", "d"}) {
        database->ExecuteAsync(Insert(group));
        server.Restart();
    }
    EXPECT_EQ(database->GetColumnSize("BDLANGUAGE", "LANG_KEY"), 10);
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"a", "b", "c", "d"}));
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

TEST_P(DatabaseServer, BurstThatLostItsConnectionIsRepeatedOnce) {
    auto database = Open();
    for (const char* group : {"a", "b"}) database->ExecuteAsync(Insert(group));
    EXPECT_TRUE(database->ExecuteSync(std::make_shared<Disconnect>()).succeeded());
    database->ExecuteAsync(Insert("c"));
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"a", "b", "c"}));
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

// The server ends the connection three times: at a statement, then at its commit.
TEST_P(DatabaseServer, WhatLostItsConnectionAgainAndAgainIsRepeated) {
    auto database = Open();
    database->Open();
    for (const char* moment : {"IMMEDIATE", "DEFERRED"}) {
        server.Run(Url(),
                   {"DROP SEQUENCE IF EXISTS TRIES", "CREATE SEQUENCE TRIES",
                    "CREATE OR REPLACE FUNCTION BREAK() RETURNS trigger LANGUAGE plpgsql AS $$ "
                    "BEGIN IF nextval('TRIES') <= 3 THEN PERFORM "
                    "pg_terminate_backend(pg_backend_pid()); END IF; RETURN NULL; END $$",
                    "DROP TRIGGER IF EXISTS BREAKS ON BDGROUP",
                    QStringLiteral("CREATE CONSTRAINT TRIGGER BREAKS AFTER INSERT ON BDGROUP "
                                   "DEFERRABLE INITIALLY %1 FOR EACH ROW EXECUTE FUNCTION BREAK()")
                        .arg(moment)});
        database->ExecuteAsync(Insert(moment));
        database->Commit();
        EXPECT_EQ(server.Run(Url(), {"SELECT last_value FROM TRIES"}), 4) << moment;
    }
    EXPECT_EQ(StoredGroups(), (QStringList{"DEFERRED", "IMMEDIATE"}));
    EXPECT_TRUE(Log().isEmpty()) << Log().join('\n').toStdString();
}

TEST_P(DatabaseServer, TellsWhichTransactionsWereCommitted) {
    Dictionary(Url(), OnMissing::Create);
    host::SqlConnection connection(host::ParseDatabaseUrl(Url()), OnMissing::Refuse);
    for (const char* end : {"COMMIT", "ROLLBACK"}) {
        ASSERT_FALSE(connection.Begin().isValid());
        const QString transaction = connection.Transaction();
        connection.Run("INSERT INTO BDPAGE DEFAULT VALUES");
        connection.Run(end);
        EXPECT_EQ(connection.WasCommitted(transaction), QString(end) == "COMMIT");
    }
}

TEST_P(DatabaseServer, ServerThatIsGoneLeavesEveryWriteInTheLog) {
    auto database = Open();
    ASSERT_TRUE(database->ExecuteSync(Insert("before")).succeeded());
    database->Commit();
    server.Stop();
    for (const char* group : {"a", "b"}) database->ExecuteAsync(Insert(group));
    EXPECT_TRUE(database->ExecuteSync(Query("select * from BDGROUP")).failed());
    EXPECT_EQ(database->GetColumnSize("BDLANGUAGE", "LANG_KEY"), 0);
    database->Commit();
    server.Start();
    EXPECT_TRUE(database->ExecuteSync(Insert("after")).succeeded());
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"after", "before"}));
    ASSERT_EQ(Log().size(), 4);
    EXPECT_TRUE(Log()[0].contains("Connection refused; check the address"))
        << Log()[0].toStdString();
    EXPECT_TRUE(Log()[0].contains("values: \"a\""));
    EXPECT_TRUE(Log()[1].contains("values: \"b\""));
    EXPECT_FALSE(Log().join('\n').contains("secret"));
}

TEST_P(DatabaseServer, TextThatItsColumnCannotHoldIsLoggedAndTheOthersStand) {
    auto database = Open();
    database->ExecuteAsync(Insert("a"));
    database->ExecuteAsync(Insert(QString(51, 'x')));
    database->ExecuteAsync(Insert("b"));
    database.reset();
    EXPECT_EQ(StoredGroups(), (QStringList{"a", "b"}));
    ASSERT_EQ(Log().size(), 1);
    EXPECT_TRUE(Log()[0].contains("longer than its column")) << Log()[0].toStdString();
    EXPECT_TRUE(Log()[0].contains(QString(51, 'x')));
}

TEST_P(DatabaseServer, WhatCannotBeOpenedIsOneClearLine) {
    const auto made = [this](const QStringList& statements, const QString& options = {}) {
        const QString url = server.NewDatabase(options);
        server.Run(url, statements);
        return url;
    };
    const QString later = server.NewDatabase();
    Dictionary(later, OnMissing::Create);
    server.Run(later, {"COMMENT ON TABLE BDTRANSLATOR IS 'application 1263944777, version 99'"});
    const QString closed = made({"CREATE ROLE GUEST LOGIN PASSWORD 'guest'"});
    QString guest = closed;
    guest.replace("keeper:secret", "guest:guest");
    const struct {
        QString url;
        OnMissing onMissing;
        const char* reason;
    } cases[] = {
        {server.Url("postgres", "wrong"), OnMissing::Create, "check the user and the password"},
        {server.Url("nowhere"), OnMissing::Create, "database \"nowhere\" does not exist; name"},
        {"postgresql://keeper@127.0.0.1:1/x", OnMissing::Create, "refused; check the address"},
        {closed, OnMissing::Refuse, "it is empty; create the dictionary with kelvara db init"},
        {guest, OnMissing::Create, "the user may not do that"},
        {made({"CREATE TABLE BDTRANSLATOR (A TEXT)"}), OnMissing::Create, "another program"},
        {later, OnMissing::Create, "schema has version 99"},
        {made({}, "ENCODING LATIN1 LOCALE 'C' TEMPLATE template0"), OnMissing::Create,
         "encoding is LATIN1"},
    };
    for (const auto& c : cases) {
        const std::string error = ErrorOf([&] { Dictionary(c.url, c.onMissing); });
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        EXPECT_EQ(error.find("secret"), std::string::npos) << error;
    }
}

TEST_P(DatabaseServer, EarlierVersionIsUpgradedWithItsTerms) {
    {
        Dictionary dictionary(Url(), OnMissing::Create);
        dictionary.AddLanguage("Português");
        dictionary.Import({"Português"}, {{"Motor"}});
    }
    RunRaw({"DROP TABLE BDGROUP", "DROP TABLE BDPAGE", "DROP TABLE BDPAGEBLOCKS",
            "COMMENT ON TABLE BDTRANSLATOR IS 'application 1263944777, version 1'"});
    EXPECT_EQ(Dictionary(Url()).ReadTerms().terms.at(0).texts, QStringList{"Motor"});
    EXPECT_TRUE(StoredGroups().isEmpty());
}

}  // namespace
