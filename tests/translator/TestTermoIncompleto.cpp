// A term with fewer translations than languages in use, against the host's database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "host/Database.h"
#include "host/Schema.h"
#include "tests/support/ScriptedServices.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {
namespace {

TEST(TermoIncompleto, IsNotWrittenAndTheLogSaysSo) {
    const QTemporaryDir pasta;
    const QString url = "sqlite:" + pasta.filePath("dicionario.sqlite");
    {
        host::SqlConnection conexao(host::ParseDatabaseUrl(url), host::OnMissing::Create);
        conexao.Run("INSERT INTO BDLANGUAGE VALUES ('1', 'Português', '1'), ('2', 'English', '1')");
        for (const int idioma : {1, 2}) host::AddLanguageColumn(conexao, idioma);
        conexao.Run("INSERT INTO BDTRANSLATOR VALUES (3, 'Motor', 'Engine')");
    }
    std::vector<std::string> registro;  // of the worker, read when all its work is done
    const auto banco = std::make_shared<host::Database>(
        url, host::OnMissing::Refuse,
        [&](const QString& linha) { registro.push_back(linha.toStdString()); });
    ScriptedServices servicos;
    servicos.database = banco;

    IBDIdiomas bd;
    IBDIdiomas::structTermo antigo{3, {u"Bomba"}};
    IBDIdiomas::structTermo novo{-1, {u"Bomba"}};
    EXPECT_NO_THROW(bd.SaveTerm(antigo));
    EXPECT_NO_THROW(bd.SaveTerm(novo));
    banco->Commit();

    EXPECT_THAT(registro, testing::SizeIs(2));
    const auto traducoes = bd.GetTerms();
    ASSERT_EQ(traducoes->terms.size(), 1u);
    EXPECT_EQ(traducoes->terms[0].translations, (std::vector<TQString>{u"Motor", u"Engine"}));
}

}  // namespace
}  // namespace traducaoTQ
