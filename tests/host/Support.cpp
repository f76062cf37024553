// Folders, users and drawings for the tests of the host.
#include "tests/host/Support.h"

#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>

#include "tests/support/PostgresServer.h"

namespace {

class Application : public testing::Environment {
  public:
    void SetUp() override { application = std::make_unique<QCoreApplication>(count, names); }
    void TearDown() override { application.reset(); }

  private:
    int count = 1;
    char name[11] = "host_tests";
    char* names[2] = {name, nullptr};
    std::unique_ptr<QCoreApplication> application;
};

const auto* const installed = testing::AddGlobalTestEnvironment(new Application);

// Pairs of code and value as lines.
std::string Groups(std::initializer_list<std::pair<int, std::string>> groups) {
    std::string text;
    for (const auto& [code, value] : groups) text += std::to_string(code) + "\n" + value + "\n";
    return text;
}

}  // namespace

Folder::Folder() {
    EXPECT_TRUE(folder.isValid());
    chmod(folder.path().toUtf8().constData(), 0777);
}

QString DictionaryPlace::Url() {
    if (GetParam() == Where::File) return folder.Database();
    if (server.isEmpty()) server = PostgresServer::Shared().NewDatabase();
    return server;
}

void DictionaryPlace::RunRaw(const QStringList& statements) {
    if (GetParam() == Where::File) return ::RunRaw(folder.File("dictionary.sqlite"), statements);
    PostgresServer::Shared().Run(Url(), statements);
}

void RunRaw(const QString& file, const QStringList& statements) {
    {
        QSqlDatabase raw = QSqlDatabase::addDatabase("QSQLITE", "raw");
        raw.setDatabaseName(file);
        ASSERT_TRUE(raw.open());
        for (const QString& statement : statements) {
            QSqlQuery query(raw);
            ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
        }
    }
    QSqlDatabase::removeDatabase("raw");
}

QSqlQuery TextQuery::Prepare(QSqlDatabase database) const {
    QSqlQuery query(database);
    query.prepare(statement);
    for (const QVariant& value : values) query.addBindValue(value);
    return query;
}

std::shared_ptr<CKVQuery> Query(const QString& statement, QVariantList values) {
    return std::make_shared<TextQuery>(statement, std::move(values));
}

std::string SmallDrawing(const std::string& version) {
    return Groups({{0, "SECTION"}, {2, "HEADER"}, {9, "$ACADVER"}, {1, version}, {0, "ENDSEC"}}) +
           Groups({{0, "SECTION"},
                   {2, "TABLES"},
                   {0, "TABLE"},
                   {2, "LAYER"},
                   {5, "2"},
                   {100, "AcDbSymbolTable"},
                   {70, "2"}}) +
           Groups({{0, "LAYER"},
                   {5, "10"},
                   {330, "2"},
                   {100, "AcDbSymbolTableRecord"},
                   {100, "AcDbLayerTableRecord"},
                   {2, "0"},
                   {70, "0"}}) +
           Groups({{0, "LAYER"},
                   {5, "11"},
                   {330, "2"},
                   {100, "AcDbSymbolTableRecord"},
                   {100, "AcDbLayerTableRecord"},
                   {2, "PAG01"},
                   {70, "0"},
                   {1001, "AcAecLayerStandard"},
                   {1000, ""},
                   {1000, "Comando do motor"}}) +
           Groups({{0, "LAYER"},
                   {5, "12"},
                   {330, "2"},
                   {100, "AcDbSymbolTableRecord"},
                   {100, "AcDbLayerTableRecord"},
                   {2, "TQ_Freeze"},
                   {70, "0"}}) +
           Groups({{0, "ENDTAB"}, {0, "ENDSEC"}, {0, "SECTION"}, {2, "ENTITIES"}}) +
           Groups({{0, "TEXT"},
                   {5, "A1"},
                   {100, "AcDbEntity"},
                   {8, "PAG01"},
                   {100, "AcDbText"},
                   {10, "0.0"},
                   {20, "0.0"},
                   {40, "2.5"},
                   {1, "Motor"},
                   {100, "AcDbText"}}) +
           Groups({{0, "ENDSEC"},
                   {0, "SECTION"},
                   {2, "OBJECTS"},
                   {0, "DICTIONARY"},
                   {5, "C"},
                   {330, "0"},
                   {100, "AcDbDictionary"},
                   {281, "1"},
                   {0, "ENDSEC"},
                   {0, "EOF"}});
}

std::string SmallDrawingR12() {
    return Groups({{0, "SECTION"},
                   {2, "HEADER"},
                   {9, "$ACADVER"},
                   {1, "AC1009"},
                   {0, "ENDSEC"},
                   {0, "SECTION"},
                   {2, "ENTITIES"},
                   {0, "TEXT"},
                   {8, "PAG01"},
                   {10, "0.0"},
                   {20, "0.0"},
                   {40, "2.5"},
                   {1, "Motor"},
                   {0, "ENDSEC"},
                   {0, "EOF"}});
}

OdDbDatabasePtr Parsed(const std::string& bytes) {
    return OdDbDatabase::fromStore(dxf::Store::Parse(bytes));
}

void WriteFile(const QString& path, const std::string& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string ReadFile(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
}
