// A PostgreSQL server of the tests' own, as tests/tools/postgres_server.sh runs it.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class PostgresServer {
  public:
    // The one of this test program: it starts with the first call and ends with the program.
    static PostgresServer& Shared();
    ~PostgresServer();

    QString Url(const QString& database, const QString& password = "secret") const;
    // The address of a database made for the caller; options are those of CREATE DATABASE.
    QString NewDatabase(const QString& options = {});
    // Statements as another program runs them, in a database of this server. Fails the test when
    // one does; gives what the last one selected first.
    QVariant Run(const QString& url, const QStringList& statements) const;

    void Stop();
    void Start();
    void Restart() {
        Stop();
        Start();
    }

  private:
    PostgresServer();
    QString Answer();
    void Command(const char* command);

    QTemporaryDir folder;
    QProcess process;
    int port = 0;
    int databases = 0;
};
