// The statements of the store on a PostgreSQL server, through the host's database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Database.h"
#include "host/Dictionary.h"
#include "tests/support/PostgresServer.h"
#include "tests/support/ScriptedServices.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {
namespace {

using structTermo = IBDIdiomas::structTermo;

struct ServerIdiomas : testing::Test {
    ServerIdiomas() : url(PostgresServer::Shared().NewDatabase()) {
        host::Dictionary(url, host::OnMissing::Create)
            .AddLanguages({"Português", "English", "Deutsch"});
        banco = std::make_shared<host::Database>(
            url, host::OnMissing::Refuse,
            [this](const QString& linha) { registro.push_back(linha.toStdString()); });
        servicos.database = banco;
    }
    // Texts of all terms, also of languages that are not in use.
    std::vector<QStringList> Textos() {
        std::vector<QStringList> textos;
        for (const auto& termo : host::Dictionary(url).ReadTerms().terms) {
            textos.push_back(termo.texts);
        }
        return textos;
    }

    QString url;
    std::vector<std::string> registro;  // of the worker, read when all its work is done
    ScriptedServices servicos;
    std::shared_ptr<host::Database> banco;
    IBDIdiomas bd;
};

TEST_F(ServerIdiomas, TermsAreAddedChangedAndRemovedAsInAFile) {
    EXPECT_EQ(bd.GetTerms(), nullptr);  // no rows
    const TQString texto = std::u16string(u"Ação; 'x' \\n \" 漢 \xDC81 :key ? $1");
    for (const TQString& primeiro : {texto, TQString(u"b"), TQString(u"c")}) {
        structTermo termo{-1, {primeiro, u"", u"z"}};
        bd.SaveTerm(termo);
    }
    structTermo mudado{3, {u"c", u"C", u""}};
    bd.SaveTerm(mudado);
    structTermo retirado{2, {}};
    bd.DeleteTerm(retirado);
    structTermo ausente{2, {u"b", u"", u""}};
    bd.SaveTerm(ausente);  // brings nothing back

    const auto traducoes = bd.GetTerms();
    EXPECT_EQ(traducoes->languages, (std::vector<TQString>{u"Português", u"English", u"Deutsch"}));
    ASSERT_EQ(traducoes->terms.size(), 2u);
    EXPECT_EQ(traducoes->terms[0].key, 1);
    EXPECT_EQ(traducoes->terms[0].translations, (std::vector<TQString>{texto, u"", u"z"}));
    EXPECT_EQ(traducoes->terms[1].key, 3);
    EXPECT_EQ(traducoes->terms[1].translations, (std::vector<TQString>{u"c", u"C", u""}));
    EXPECT_EQ(bd.GetMaxTermLength(), 250);
    banco->Commit();
    EXPECT_THAT(registro, testing::IsEmpty());
}

// With no language in use the statement is none, and the burst around it stands.
TEST_F(ServerIdiomas, AStatementThatFailsLeavesTheOthers) {
    structTermo termo{-1, {u"a", u"b", u"c"}};
    bd.SaveTerm(termo);
    for (const char16_t* chave : {u"1", u"2", u"3"}) bd.UpdateLang({chave, u"x", u"0"});
    EXPECT_EQ(bd.GetTerms(), nullptr);
    banco->Commit();
    EXPECT_EQ(Textos(), (std::vector<QStringList>{{"a", "b", "c"}}));
    EXPECT_EQ(bd.GetPageGroupSelo(u"A", u"2"), u"");
    EXPECT_THAT(registro, testing::SizeIs(1));
}

}  // namespace
}  // namespace traducaoTQ
