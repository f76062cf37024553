// Loading, saving and replacing: lines against a real database and a real drawing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/drawing/OdError.h"
#include "tests/translator/BancoDeTeste.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/dialogs/AcoesSobreLinhas.h"
#include "translator/engine/ListaTraduziveis.h"
#include "translator/engine/RegistrosTraducao.h"

namespace traducaoTQ {
namespace {

using Registros = RegistrosObjeto;

// Languages 1 to 3, of which 2 is out of use. "Motor" stands twice in the drawing.
struct AcoesSobreLinhas : testing::Test {
    AcoesSobreLinhas()
        : banco(std::make_shared<BancoDeTeste>(
              std::vector<std::array<QString, 3>>{
                  {"1", "Português", "1"}, {"2", "English", "0"}, {"3", "Deutsch", "1"}},
              3)) {
        dxfDeTeste::Desenho desenho;
        desenho.entidades = dxfDeTeste::Texto("A1", "P", "Motor") +
                            dxfDeTeste::Texto("A2", "P", "Bomba") +
                            dxfDeTeste::Texto("A3", "P", "Motor");
        cena = std::make_unique<Cena>(desenho.Dxf());
        cena->servicos.database = banco;
        banco->Run("INSERT INTO BDTRANSLATOR VALUES (1, 'Motor', 'e', 'Antrieb')");
        objetos = NovaLista();
        Acrescentar<ETextoTrad>(objetos, u"Motor", u"A1");
        Acrescentar<ETextoTrad>(objetos, u"Bomba", u"A2");
        Acrescentar<ETextoTrad>(objetos, u"Motor", u"A3");
        idiomas = IBDIdiomas().GetAllLang();
        tabela.AgruparExpressoes(*objetos);
    }
    void Casar() {
        GarantirDicionario(tabela);
        tabela.AtualizarExpressoes(TQString(u"Português"), TQString(u"Deutsch"));
    }
    void Importar(size_t linha, const char16_t* traducao) {
        Linha(linha).estado = Importado;
        Linha(linha).traducao = traducao;
    }
    structExpressao& Linha(size_t i) { return *tabela.expressoes->at(i); }

    std::shared_ptr<BancoDeTeste> banco;
    std::unique_ptr<Cena> cena;
    ListaTraduziveis objetos;
    std::vector<IBDIdiomas::structIdioma> idiomas;
    TermosFeitos feitos;
    ITabelaExpressoes tabela;
    const structColunas colunas{0, 1};  // languages in use only
};

TEST_F(AcoesSobreLinhas, RecordsGoToEveryObjectOfALineInTheLanguagesInUse) {
    Casar();
    Importar(1, u"Pumpe");
    RegistrarNoDesenho(tabela, colunas, idiomas, feitos);
    const Registros motor{{u"1", u"Motor"}, {u"3", u"Antrieb"}};
    EXPECT_EQ(*ReadObjectRecords(u"A1"), motor);
    EXPECT_EQ(*ReadObjectRecords(u"A3"), motor);
    EXPECT_EQ(*ReadObjectRecords(u"A2"), (Registros{{u"1", u"Bomba"}, {u"3", u"Pumpe"}}));
    EXPECT_EQ(Linha(1).estado, Automatica);
    // The made term is in no dictionary: the next refresh does not find it.
    Casar();
    EXPECT_EQ(Linha(1).estado, NaoTraduzido);
    EXPECT_NE(Linha(1).termo, nullptr);
}

TEST_F(AcoesSobreLinhas, LinesWithoutATranslationAreNeitherRecordedNorWritten) {
    Linha(0).estado = 0;
    EXPECT_FALSE(TemTraducao(tabela));
    RegistrarNoDesenho(tabela, colunas, idiomas, feitos);
    GravarNoBanco(tabela, colunas, idiomas, feitos);
    SubstituirTextos(tabela);
    EXPECT_TRUE(ReadObjectRecords(u"A1")->empty());
    EXPECT_EQ(cena->TextoDe(u"A1"), u"Motor");
    EXPECT_TRUE(feitos.empty());
}

TEST_F(AcoesSobreLinhas, TheDatabaseGetsNewAndChangedTextsOnly) {
    Casar();
    Importar(0, u"Antrieb");  // as it stands there
    Importar(1, u"Pumpe");
    GravarNoBanco(tabela, colunas, idiomas, feitos);
    EXPECT_EQ(banco->Run("SELECT * FROM BDTRANSLATOR").size(), 2u);
    EXPECT_EQ(banco->Run("SELECT LANGUAGE3 FROM BDTRANSLATOR WHERE TRANS_KEY = 2").front()[0],
              "Pumpe");
    Importar(0, u"Motor");
    Importar(1, u"Kreiselpumpe");  // key -1 still: a second row
    GravarNoBanco(tabela, colunas, idiomas, feitos);
    EXPECT_EQ(banco->Run("SELECT LANGUAGE2, LANGUAGE3 FROM BDTRANSLATOR WHERE TRANS_KEY = 1"),
              (std::list<std::vector<QVariant>>{{"e", "Motor"}}));
    EXPECT_EQ(banco->Run("SELECT * FROM BDTRANSLATOR").size(), 3u);
    EXPECT_TRUE(TemTraducao(tabela));
}

TEST_F(AcoesSobreLinhas, AnEmptyTranslationByHandIsRecordedAndNotPutIntoTheDrawing) {
    Linha(0).estado = Manual;
    RegistrarNoDesenho(tabela, colunas, idiomas, feitos);
    EXPECT_EQ(*ReadObjectRecords(u"A1"), (Registros{{u"1", u"Motor"}, {u"3", u""}}));
    Importar(1, u"Pumpe");
    SubstituirTextos(tabela);
    EXPECT_EQ(cena->TextoDe(u"A1"), u"Motor");
    EXPECT_EQ(cena->TextoDe(u"A2"), u"Pumpe");
}

TEST_F(AcoesSobreLinhas, AFreshColumnComesFromTheFirstEqualTermAndAddsNothing) {
    Casar();
    banco->Run("UPDATE BDTRANSLATOR SET LANGUAGE3 = 'Motor'");
    banco->Run("INSERT INTO BDTRANSLATOR VALUES (2, 'Motor', '', 'later'), (3, 'Bomba', '', 'x')");
    const auto atualizar = [&](size_t comparada) {
        AtualizarColuna(tabela, IBDIdiomas().GetTerms().get(), comparada, 1);
    };
    atualizar(0);
    ASSERT_EQ(tabela.traducoes->terms.size(), 1u);
    EXPECT_EQ(tabela.traducoes->terms[0].translations[1], u"Motor");
    EXPECT_THROW(atualizar(2), std::out_of_range);
    banco->Run("DELETE FROM BDTRANSLATOR");
    atualizar(2);  // no terms, nothing to compare
}

TEST_F(AcoesSobreLinhas, TheProjectDictionaryHasATermPerObjectAndMakesTheLinesAnew) {
    Casar();
    RegistrarNoDesenho(tabela, colunas, idiomas, feitos);
    Importar(1, u"Pumpe");
    CarregarDicionarioProjeto(tabela, *objetos, u"1");
    EXPECT_EQ(Linha(1).estado, NaoTraduzido);
    ASSERT_EQ(tabela.traducoes->terms.size(), 3u);
    EXPECT_EQ(tabela.traducoes->terms[2].key, -1);
    Casar();
    EXPECT_EQ(Linha(0).traducao, u"Antrieb");
    EXPECT_EQ(Linha(1).traducao, u"");
}

}  // namespace
}  // namespace traducaoTQ
