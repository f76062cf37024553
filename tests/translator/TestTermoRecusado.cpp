// Writes of terms that the host's database cannot take: nothing is written, and the log has the
// texts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "host/Database.h"
#include "host/Schema.h"
#include "tests/support/ScriptedServices.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class TermoRecusado : public testing::Test {
  protected:
    TermoRecusado() : url("sqlite:" + pasta.filePath("dicionario.sqlite")) {
        host::SqlConnection conexao(host::ParseDatabaseUrl(url), host::OnMissing::Create);
        conexao.Run("INSERT INTO BDLANGUAGE VALUES ('1', 'Português', '1'), ('2', 'English', '1')");
        for (const int idioma : {1, 2}) host::AddLanguageColumn(conexao, idioma);
        conexao.Run("INSERT INTO BDTRANSLATOR VALUES (3, 'Motor', 'Engine')");
    }
    // As another program.
    QString Sql(const QString& instrucao) {
        return host::SqlConnection(host::ParseDatabaseUrl(url), host::OnMissing::Refuse)
            .Value(instrucao);
    }
    void Gravar(std::vector<TQString> textos) {
        const auto banco = std::make_shared<host::Database>(
            url, host::OnMissing::Refuse,
            [this](const QString& linha) { registro.push_back(linha.toStdString()); });
        servicos.database = banco;
        IBDIdiomas::structTermo antigo{3, textos}, novo{-1, textos};
        EXPECT_NO_THROW(IBDIdiomas().SaveTerm(antigo));
        EXPECT_NO_THROW(IBDIdiomas().SaveTerm(novo));
        banco->Commit();
    }

    const QTemporaryDir pasta;
    const QString url;
    std::vector<std::string> registro;  // of the worker, read when all its work is done
    ScriptedServices servicos;
};

TEST_F(TermoRecusado, WithFewerTextsThanLanguagesInUse) {
    Gravar({u"Bomba"});
    EXPECT_THAT(registro, ElementsAre(HasSubstr("where TRANS_KEY = ?; values: \"Bomba\", \"3\""),
                                      HasSubstr("VALUES (  ? , ?  ); values: \"Bomba\"")));
    EXPECT_EQ(Sql("SELECT count(*) || max(LANGUAGE1) FROM BDTRANSLATOR"), "1Motor");
}

TEST_F(TermoRecusado, WhenTheLanguagesCannotBeRead) {
    Sql("ALTER TABLE BDLANGUAGE RENAME TO GONE");
    Gravar({u"Bomba", u"Pump"});
    ASSERT_EQ(registro.size(), 4u);  // each write after the reading of the languages
    EXPECT_THAT(registro[1], AllOf(HasSubstr("update BDTRANSLATOR"),
                                   HasSubstr("values: \"Bomba\", \"Pump\", \"3\"")));
    EXPECT_THAT(registro[3], AllOf(HasSubstr("INSERT INTO BDTRANSLATOR"),
                                   HasSubstr("values: \"Bomba\", \"Pump\"")));
    EXPECT_EQ(Sql("SELECT count(*) || max(LANGUAGE1) FROM BDTRANSLATOR"), "1Motor");
}

}  // namespace
}  // namespace traducaoTQ
