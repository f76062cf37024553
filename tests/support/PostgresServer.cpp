// Talking to the script that runs the server.
#include "tests/support/PostgresServer.h"

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

PostgresServer& PostgresServer::Shared() {
    static PostgresServer server;
    return server;
}

PostgresServer::PostgresServer() {
    folder.setAutoRemove(false);  // the script does
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(KV_SOURCE_DIR "/tests/tools/postgres_server.sh", {folder.path()});
    port = Answer().section(u' ', 1).toInt();
    EXPECT_GT(port, 0) << "the server did not start";
}

PostgresServer::~PostgresServer() {
    process.closeWriteChannel();
    process.waitForFinished();
}

QString PostgresServer::Answer() {
    while (!process.canReadLine() && process.waitForReadyRead(60000)) {
    }
    return QString::fromUtf8(process.readLine()).trimmed();
}

void PostgresServer::Command(const char* command) {
    process.write(QByteArray(command) + '\n');
    process.waitForBytesWritten();
    EXPECT_EQ(Answer(), "done") << command;
}

void PostgresServer::Stop() { Command("stop"); }

void PostgresServer::Start() { Command("start"); }

QString PostgresServer::Url(const QString& database, const QString& password) const {
    return QStringLiteral("postgresql://keeper:%1@127.0.0.1:%2/%3")
        .arg(password)
        .arg(port)
        .arg(database);
}

QString PostgresServer::NewDatabase(const QString& options) {
    const QString name = QStringLiteral("test%1").arg(++databases);
    Run(Url("postgres"), {QStringLiteral("CREATE DATABASE %1 %2").arg(name, options)});
    return Url(name);
}

QVariant PostgresServer::Run(const QString& address, const QStringList& statements) const {
    const QUrl url(address);
    QVariant selected;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QPSQL", "keeper");
        database.setHostName(url.host());
        database.setPort(url.port());
        database.setUserName(url.userName());
        database.setPassword(url.password());
        database.setDatabaseName(url.path().mid(1));
        EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
        for (const QString& statement : statements) {
            QSqlQuery query(database);
            EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
            selected = query.next() ? query.value(0) : QVariant();
        }
    }
    QSqlDatabase::removeDatabase("keeper");
    return selected;
}
