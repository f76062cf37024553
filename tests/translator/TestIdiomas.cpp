// The store of languages and terms, on a real SQLite database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ScriptedServices.h"
#include "tests/translator/BancoDeTeste.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {
namespace {

using structTermo = IBDIdiomas::structTermo;

// Keys 1, 2 and 4: the columns by key and by position differ. "2" is no use flag.
const std::vector<std::array<QString, 3>> kIdiomas = {
    {"4", "English", "1"}, {"1", "Português", "1"}, {"2", "Deutsch", "2"}};

struct Idiomas : testing::Test {
    explicit Idiomas(const std::vector<std::array<QString, 3>>& idiomas = kIdiomas)
        : banco(std::make_shared<BancoDeTeste>(idiomas, 4)) {
        servicos.database = banco;
    }
    const BancoDeTeste::Chamada& Ultima() { return banco->chamadas.back(); }

    ScriptedServices servicos;
    std::shared_ptr<BancoDeTeste> banco;
    IBDIdiomas bd;
};

struct SemIdiomas : Idiomas {
    SemIdiomas() : Idiomas(std::vector<std::array<QString, 3>>{}) {}
};

TEST_F(Idiomas, LanguagesComeInAscendingNumberWhetherInUseOrNot) {
    std::vector<TQString> lidos;
    for (const auto& idioma : bd.GetAllLang()) {
        lidos.push_back(idioma.key + u"|" + idioma.descr + u"|" + idioma.use);
    }
    EXPECT_EQ(lidos, (std::vector<TQString>{u"1|Português|1", u"2|Deutsch|2", u"4|English|1"}));
    EXPECT_EQ(Ultima().statement,
              "select LANG_KEY, LANG_DESCR, LANG_USE from BDLANGUAGE order by cast(LANG_KEY as "
              "INTEGER)");
    EXPECT_EQ(Ultima().cacheKey, "{CQueryGetAllLang}");
    EXPECT_TRUE(Ultima().sync && Ultima().readOnly);
}

TEST_F(Idiomas, ALanguageIsUpdatedByItsKeyAndAnUnknownOneChangesNothing) {
    bd.UpdateLang({u"2", u"Alemão 'x'", u"0"});
    EXPECT_EQ(Ultima().statement,
              "update BDLANGUAGE SET LANG_DESCR = :descr , LANG_USE = :use where LANG_KEY = :key");
    EXPECT_FALSE(Ultima().sync || Ultima().readOnly);
    bd.UpdateLang({u"9", u"Latim", u"1"});
    const auto idiomas = bd.GetAllLang();
    ASSERT_EQ(idiomas.size(), 3u);
    EXPECT_EQ(idiomas[1].descr, u"Alemão 'x'");
    EXPECT_EQ(idiomas[1].use, u"0");
}

TEST_F(Idiomas, TermsAreReadInTheColumnsOfTheLanguagesInUse) {
    EXPECT_EQ(bd.GetTerms(), nullptr);  // no rows
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (7, 'b', 'x', 'y', NULL), (3, 'a', 'x', 'y', 'z')");
    const auto traducoes = bd.GetTerms();
    EXPECT_EQ(Ultima().statement,
              "select TRANS_KEY , LANGUAGE1,LANGUAGE4  from BDTRANSLATOR order by TRANS_KEY");
    EXPECT_EQ(Ultima().cacheKey, "{CQueryGetTerms}");
    ASSERT_TRUE(traducoes);
    EXPECT_EQ(traducoes->languages, (std::vector<TQString>{u"Português", u"English"}));
    ASSERT_EQ(traducoes->terms.size(), 2u);
    EXPECT_EQ(traducoes->terms[0].key, 3);
    EXPECT_EQ(traducoes->terms[0].translations, (std::vector<TQString>{u"a", u"z"}));
    EXPECT_EQ(traducoes->terms[1].translations, (std::vector<TQString>{u"b", u""}));
}

TEST_F(Idiomas, TermsOfChosenLanguagesComeInTheirOrderAndFromRowsOfTheHostToo) {
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (3, 'a', 'x', 'y', 'z'), (7, 'b', 'x', 'y', NULL)");
    auto idiomas = bd.GetAllLang();
    std::reverse(idiomas.begin(), idiomas.end());
    for (const bool doHost : {false, true}) {
        banco->juntaAsLinhas = doHost;
        const auto traducoes = bd.GetTerms(idiomas);
        EXPECT_EQ(Ultima().statement,
                  "select TRANS_KEY , LANGUAGE4,LANGUAGE1  from BDTRANSLATOR order by TRANS_KEY");
        ASSERT_TRUE(traducoes);
        EXPECT_EQ(traducoes->languages, (std::vector<TQString>{u"English", u"Português"}));
        ASSERT_EQ(traducoes->terms.size(), 2u);
        EXPECT_EQ(traducoes->terms[0].key, 3);
        EXPECT_EQ(traducoes->terms[0].translations, (std::vector<TQString>{u"z", u"a"}));
        EXPECT_EQ(traducoes->terms[1].translations, (std::vector<TQString>{u"", u"b"}));
    }
}

TEST_F(Idiomas, AnUpdateNamesColumnsByKeyAndLeavesTheOthers) {
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (3, 'a', 'x', 'y', 'z')");
    structTermo termo{3, {u"Ação; 漢", u""}};
    bd.SaveTerm(termo);
    EXPECT_EQ(Ultima().statement,
              "update BDTRANSLATOR SET  LANGUAGE1 = ?  ,  LANGUAGE4 = ?  where TRANS_KEY = ?");
    EXPECT_EQ(Ultima().values, (std::vector<QVariant>{QString("Ação; 漢"), QString(""), 3}));
    EXPECT_EQ(Ultima().cacheKey, "");
    EXPECT_FALSE(Ultima().sync || Ultima().readOnly);
    const auto linhas = banco->Run("SELECT * FROM BDTRANSLATOR");
    EXPECT_EQ(linhas.front(), (std::vector<QVariant>{3, "Ação; 漢", "x", "y", ""}));
    EXPECT_FALSE(linhas.front()[4].isNull());  // an empty text is no NULL
}

TEST_F(Idiomas, AnInsertCountsColumnsByPositionAndFillsUnusedLanguagesWithEmptyTexts) {
    for (int chave : {-1, 0}) {
        structTermo termo{chave, {u"a", u"b"}};
        bd.SaveTerm(termo);
        EXPECT_EQ(termo.key, chave);
    }
    EXPECT_EQ(Ultima().statement,
              "INSERT INTO BDTRANSLATOR ( LANGUAGE1,LANGUAGE2,LANGUAGE3 ) VALUES (  ? , ? , ?  )");
    EXPECT_EQ(Ultima().values, (std::vector<QVariant>{"a", QString(""), "b"}));
    EXPECT_FALSE(Ultima().sync || Ultima().readOnly);
    const auto linhas = banco->Run("SELECT * FROM BDTRANSLATOR");
    ASSERT_EQ(linhas.size(), 2u);
    EXPECT_EQ(linhas.back()[0], 2);  // the database gave the key
    EXPECT_FALSE(linhas.back()[2].isNull());
    EXPECT_TRUE(linhas.back()[4].isNull());
}

TEST_F(Idiomas, ADeletedTermIsGoneByItsKeyAlone) {
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (3, 'a', '', '', ''), (4, 'a', '', '', '')");
    structTermo termo{3, {u"other"}};
    bd.DeleteTerm(termo);
    EXPECT_EQ(Ultima().statement, "DELETE FROM BDTRANSLATOR WHERE TRANS_KEY = :key");
    EXPECT_EQ(banco->Run("SELECT TRANS_KEY FROM BDTRANSLATOR").front()[0], 4);
    EXPECT_EQ(bd.GetMaxTermLength(), 40);
}

TEST_F(Idiomas, PageGroupsAreNeverListed) {
    banco->Run("INSERT INTO BDGROUP VALUES ('A', 1), ('A', 2), ('B', 1)");
    EXPECT_THAT(bd.GetPageGroupKeys(), testing::IsEmpty());
    EXPECT_EQ(Ultima().statement, "SELECT GROUP_KEY FROM BDGROUP");
    EXPECT_EQ(Ultima().cacheKey, "{CQueryGetPageGroupKeys}");
}

TEST_F(Idiomas, EachBlockKindOfAPageGroupHasItsPath) {
    banco->Run("INSERT INTO BDGROUP VALUES ('A', 1)");
    banco->Run("INSERT INTO BDPAGE VALUES (1)");
    banco->Run(
        "INSERT INTO BDPAGEBLOCKS VALUES (1, '2', '0', 'selo'), (1, '2', '1', 'identify'), "
        "(1, '2', '2', 'formato'), (1, '2', '3', 'de'), (1, '2', '4', 'pagina')");
    EXPECT_EQ(bd.GetPageGroupSelo(u"A", u"2"), u"selo");
    EXPECT_EQ(bd.GetPageGroupIdentify(u"A", u"2"), u"identify");
    EXPECT_EQ(bd.GetPageGroupFormato(u"A", u"2"), u"formato");
    EXPECT_EQ(bd.GetPageGroupDe(u"A", u"2"), u"de");
    EXPECT_EQ(Ultima().values, (std::vector<QVariant>{"A", "2", QString("3")}));
    EXPECT_EQ(Ultima().values[2].metaType(), QMetaType::fromType<QString>());
    EXPECT_EQ(bd.GetPageGroupPagina(u"A", u"2"), u"pagina");
    EXPECT_EQ(Ultima().cacheKey, "{CQueryGetPageGroupBlock-A-2-4}");
    EXPECT_EQ(Ultima().statement,
              "SELECT PATH FROM BDPAGE, BDGROUP, BDPAGEBLOCKS WHERE BDPAGEBLOCKS.PAGE_KEY=PAGE AND "
              "BDPAGE.PAGE_KEY=PAGE AND GROUP_KEY = :group and LANG = :lang and BLOCK = :block");
    EXPECT_EQ(bd.GetPageGroupPagina(u"A", u"1"), u"");
}

TEST_F(SemIdiomas, WithoutLanguagesStatementsFailInSilenceAndReadsAreEmpty) {
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (3, 'a', 'x', 'y', 'z')");
    EXPECT_THAT(bd.GetAllLang(), testing::IsEmpty());
    EXPECT_EQ(bd.GetTerms(), nullptr);
    structTermo termo{3, {u"b"}};
    bd.UpdateTerm(termo);
    EXPECT_EQ(banco->Run("SELECT LANGUAGE1 FROM BDTRANSLATOR").front()[0], "a");
    banco->Run("DROP TABLE BDLANGUAGE");
    banco->Run("DROP TABLE BDGROUP");
    EXPECT_THAT(bd.GetAllLang(), testing::IsEmpty());
    EXPECT_THAT(bd.GetPageGroupKeys(), testing::IsEmpty());
    EXPECT_EQ(bd.GetPageGroupSelo(u"A", u"2"), u"");
}

}  // namespace
}  // namespace traducaoTQ
