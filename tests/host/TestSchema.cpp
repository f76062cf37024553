// Opening a dictionary: what is accepted, what is upgraded, what is refused and how it is said.
#include <QFile>

#include "host/Dictionary.h"
#include "host/Schema.h"
#include "tests/host/Support.h"

namespace {

using host::Dictionary;
using host::OnMissing;

struct Refusal {
    const char* name;
    std::function<void(const QString& file)> make;
    OnMissing onMissing;
    const char* reason;
};

class RefusalTest : public testing::TestWithParam<Refusal> {};

TEST_P(RefusalTest, IsOneClearLineAndLeavesTheFile) {
    Folder folder;
    const QString file = folder.File("dictionary.sqlite");
    GetParam().make(file);
    const std::string before = QFile::exists(file) ? ReadFile(file) : "none";
    const std::string error = ErrorOf([&] { Dictionary("sqlite:" + file, GetParam().onMissing); });
    EXPECT_NE(error.find(GetParam().reason), std::string::npos) << error;
    EXPECT_NE(error.find(file.toStdString()), std::string::npos) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos);
    EXPECT_EQ(QFile::exists(file) ? ReadFile(file) : "none", before);
}

const Refusal kRefusals[] = {
    {"missing", [](const QString&) {}, OnMissing::Refuse, "no such file; create it with"},
    {"empty", [](const QString& file) { WriteFile(file, ""); }, OnMissing::Refuse, "it is empty"},
    {"noDatabase", [](const QString& file) { WriteFile(file, std::string(4096, 'x')); },
     OnMissing::Create, "no SQLite database"},
    {"truncated",
     [](const QString& file) {
         Dictionary("sqlite:" + file, OnMissing::Create).AddLanguage("Português");
         ASSERT_TRUE(QFile::resize(file, 4096 + 100));
     },
     OnMissing::Refuse, "damaged"},
    {"ofAnotherProgram",
     [](const QString& file) { RunRaw(file, {"CREATE TABLE BDTRANSLATOR (A)"}); },
     OnMissing::Create, "belongs to another program"},
    {"ofALaterVersion",
     [](const QString& file) {
         Dictionary("sqlite:" + file, OnMissing::Create);
         RunRaw(file, {"PRAGMA user_version = 99"});
     },
     OnMissing::Create, "schema has version 99"},
};
INSTANTIATE_TEST_SUITE_P(All, RefusalTest, testing::ValuesIn(kRefusals),
                         [](const auto& info) { return info.param.name; });

TEST(DatabaseUrl, IsRefusedWithTheReason) {
    const struct {
        const char *url, *reason;
    } cases[] = {{"postgresql://me@server", "names no database"},
                 {"postgresql://me@server:port/terms", "postgresql:..."},
                 {"mysql://me@server/terms", "no address of a database"},
                 {"dictionary.sqlite", "use sqlite:FILE"},
                 {"sqlite:", "use sqlite:FILE"},
                 {"sqlite:/nowhere/at/all/x.sqlite", "the folder /nowhere/at/all does not exist"},
                 {"sqlite:/", "this is a folder"}};
    for (const auto& c : cases) {
        const std::string error = ErrorOf([&] { Dictionary(c.url, OnMissing::Create); });
        EXPECT_NE(error.find(c.reason), std::string::npos) << c.url << ": " << error;
    }
}

TEST(Schema, FolderWithoutPermissionIsSaid) {
    Folder folder;
    const ReadOnly closed(folder.File("."));
    const OrdinaryUser user;
    const std::string error = ErrorOf([&] { Dictionary(folder.Database(), OnMissing::Create); });
    EXPECT_NE(error.find("cannot be opened; check the folder"), std::string::npos) << error;
}

TEST(Schema, LockedFileIsSaid) {
    Folder folder;
    Dictionary dictionary(folder.Database(), OnMissing::Create);
    RunRaw(folder.File("dictionary.sqlite"), {"PRAGMA user_version = 1", "DROP TABLE BDGROUP",
                                              "DROP TABLE BDPAGE", "DROP TABLE BDPAGEBLOCKS"});
    host::SqlConnection other(host::ParseDatabaseUrl("sqlite:" + folder.File("other.sqlite")),
                              OnMissing::Create);
    other.Run("ATTACH '" + folder.File("dictionary.sqlite") + "' AS other");
    other.Run("BEGIN EXCLUSIVE");
    const std::string error = ErrorOf([&] {
        host::SqlConnection(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse,
                            std::chrono::milliseconds(20));
    });
    EXPECT_NE(error.find("locked by another program"), std::string::npos) << error;
}

TEST(Schema, EarlierVersionIsUpgradedWithItsTerms) {
    Folder folder;
    {
        Dictionary dictionary(folder.Database(), OnMissing::Create);
        dictionary.AddLanguage("Português");
        dictionary.Import({"Português"}, {{"Motor"}});
    }
    const QString file = folder.File("dictionary.sqlite");
    RunRaw(file, {"DROP TABLE BDGROUP", "DROP TABLE BDPAGE", "DROP TABLE BDPAGEBLOCKS",
                  "PRAGMA user_version = 1"});
    {
        const ReadOnly closed(file);
        const OrdinaryUser user;
        const std::string error = ErrorOf([&] { Dictionary dictionary(folder.Database()); });
        EXPECT_NE(error.find("cannot be written"), std::string::npos) << error;
    }
    Dictionary dictionary(folder.Database());
    EXPECT_EQ(dictionary.ReadTerms().terms.at(0).texts, QStringList{"Motor"});
    host::SqlConnection connection(host::ParseDatabaseUrl(folder.Database()), OnMissing::Refuse);
    EXPECT_EQ(connection.Handle().tables().size(), 6);  // five and that of AUTOINCREMENT
}

TEST(Schema, KeyOfADeletedTermIsNotUsedAgain) {
    Folder folder;
    Dictionary dictionary(folder.Database(), OnMissing::Create);
    dictionary.AddLanguage("Português");
    dictionary.Import({"Português"}, {{"a"}, {"b"}});
    RunRaw(folder.File("dictionary.sqlite"), {"DELETE FROM BDTRANSLATOR"});
    dictionary.Import({"Português"}, {{"c"}});
    EXPECT_EQ(dictionary.ReadTerms().terms.at(0).key, 3);
}

}  // namespace
