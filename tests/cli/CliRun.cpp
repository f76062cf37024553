// Running the program.
#include "tests/cli/CliRun.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>

std::string ReadFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll().toStdString();
}

QStringList Drawings() {
    const QString source = KV_SOURCE_DIR;
    const QString fixtures = source + "/tests/fixtures";
    QStringList paths;
    for (const QString& name :
         {qEnvironmentVariable("KV_DRAWINGS", fixtures), source + "/examples"}) {
        const QDir drawings(name);
        for (const QString& file :
             drawings.entryList({"*.dxf", "*.dxb"}, QDir::Files, QDir::Name)) {
            paths << drawings.filePath(file);
        }
    }
    return paths;
}

void CliTest::Start(QProcess& process, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        environment.insert(name, folder.path());
    }
    environment.remove("KELVARA_DATABASE");
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    process.start(KV_BINARY_DIR "/bin/kelvara", arguments);
    ASSERT_TRUE(process.waitForStarted()) << process.errorString().toStdString();
}

CliResult CliTest::Run(const QStringList& arguments, const std::string& input) {
    QProcess process;
    Start(process, arguments);
    process.write(input.data(), static_cast<qint64>(input.size()));
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(300000)) << arguments.join(' ').toStdString();
    const bool exited = process.exitStatus() == QProcess::NormalExit;
    return {exited ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

std::string CliTest::Path(const std::string& name) const {
    return folder.filePath(QString::fromStdString(name)).toStdString();
}

void CliTest::Write(const std::string& name, const std::string& bytes) {
    QFile file(QString::fromStdString(Path(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())),
              static_cast<qint64>(bytes.size()));
}

std::string CliTest::Read(const std::string& name) { return ReadFile(Path(name)); }

QStringList CliTest::Files() const {
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void CliTest::MakeDictionary(const std::string& csv) {
    Write("languages.txt", "Português\nEnglish\nDeutsch\n");
    Write("terms.csv", csv);
    const QStringList database{"--database", "sqlite:d.sqlite"};
    CliResult made = Run(database + QStringList{"db", "init", "--languages", "languages.txt"});
    ASSERT_EQ(made.status, 0) << made.err;
    made = Run(database + QStringList{"db", "import", "terms.csv"});
    ASSERT_EQ(made.status, 0) << made.err;
}

void CliTest::Change(const char* name, const char* statement) {
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", name);
        database.setDatabaseName(QString::fromStdString(Path(name)));
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(statement));
    }
    QSqlDatabase::removeDatabase(name);
}

bool IsOneErrorLine(const std::string& err) {
    return err.starts_with("kelvara: ") && err.find('\n') == err.size() - 1;
}
