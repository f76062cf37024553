// A database in memory for tests of the store: real SQLite, queries run at once and in the order
// submitted. It remembers each statement with its bound values.
#pragma once

#include <gtest/gtest.h>

#include <QFuture>
#include <QSqlError>
#include <QSqlRecord>
#include <array>
#include <list>
#include <string>
#include <vector>

#include "platform/kernel/KVDatabase.h"

class BancoDeTeste : public CKVDatabase {
  public:
    struct Chamada {
        QString statement;
        std::vector<QVariant> values;
        bool sync;
        bool readOnly;
        std::string cacheKey;
    };

    // Languages as key, name and use flag, and as many language columns as languageColumns.
    BancoDeTeste(const std::vector<std::array<QString, 3>>& idiomas, int languageColumns) {
        static int number = 0;
        connection = QStringLiteral("teste%1").arg(++number);
        QSqlDatabase banco = QSqlDatabase::addDatabase("QSQLITE", connection);
        banco.setDatabaseName(":memory:");
        EXPECT_TRUE(banco.open());
        Run("CREATE TABLE BDLANGUAGE (LANG_KEY TEXT, LANG_DESCR TEXT, LANG_USE TEXT)");
        for (const auto& [chave, nome, uso] : idiomas) {
            Run(QStringLiteral("INSERT INTO BDLANGUAGE VALUES ('%1', '%2', '%3')")
                    .arg(chave, nome, uso));
        }
        QString colunas;
        for (int i = 1; i <= languageColumns; ++i) {
            colunas += QStringLiteral(", LANGUAGE%1 VARCHAR(40)").arg(i);
        }
        Run("CREATE TABLE BDTRANSLATOR (TRANS_KEY INTEGER PRIMARY KEY AUTOINCREMENT" + colunas +
            ")");
        Run("CREATE TABLE BDGROUP (GROUP_KEY TEXT, PAGE INTEGER)");
        Run("CREATE TABLE BDPAGE (PAGE_KEY INTEGER)");
        Run("CREATE TABLE BDPAGEBLOCKS (PAGE_KEY INTEGER, LANG TEXT, BLOCK TEXT, PATH TEXT)");
    }
    ~BancoDeTeste() override { QSqlDatabase::removeDatabase(connection); }

    std::list<std::vector<QVariant>> Run(const QString& statement) {
        QSqlQuery query(QSqlDatabase::database(connection));
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        std::list<std::vector<QVariant>> rows;
        while (query.next()) {
            auto& row = rows.emplace_back();
            for (int i = 0; i < query.record().count(); ++i) row.push_back(query.value(i));
        }
        return rows;
    }

    CKVQueryResponse ExecuteSync(std::shared_ptr<CKVQuery> query) override {
        return Execute(*query, true);
    }
    QFuture<CKVQueryResponse> ExecuteAsync(std::shared_ptr<CKVQuery> query) override {
        return QtFuture::makeReadyFuture(Execute(*query, false));
    }
    int GetColumnSize(QString table, QString column) override {
        return table == "BDTRANSLATOR" && column == "LANGUAGE1" ? 40 : 0;
    }

    std::vector<Chamada> chamadas;
    bool juntaAsLinhas = false;  // by itself, as a host does that keeps results

  private:
    CKVQueryResponse Execute(const CKVQuery& query, bool sync) {
        QSqlDatabase banco = QSqlDatabase::database(connection);
        const QSqlQuery prepared = query.Prepare(banco);
        const QVariantList values = prepared.boundValues();
        chamadas.push_back({prepared.lastQuery(),
                            {values.begin(), values.end()},
                            sync,
                            query.IsReadOnly(),
                            query.GetCacheKey()});
        EXPECT_TRUE(query.IsDatabaseQuery());
        return juntaAsLinhas ? query.CKVQuery::Execute(banco) : query.Execute(banco);
    }

    QString connection;
};
