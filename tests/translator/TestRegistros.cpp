// The translation records in the drawing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "platform/drawing/DbXrecord.h"
#include "platform/drawing/EObjString.h"
#include "tests/translator/BancoDeTeste.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/engine/ListaTraduziveis.h"
#include "translator/engine/RegistrosTraducao.h"

namespace traducaoTQ {
namespace {

using namespace dxfDeTeste;
using Registros = RegistrosObjeto;
using structIdioma = IBDIdiomas::structIdioma;

std::vector<structIdioma> IdiomasEmUso(const std::vector<TQString>& chaves) {
    std::vector<structIdioma> idiomas;
    for (const char16_t* chave : {u"1", u"2", u"3"}) {
        const bool usado = std::find(chaves.begin(), chaves.end(), chave) != chaves.end();
        idiomas.push_back({chave, u"", usado ? u"1" : u"0"});
    }
    return idiomas;
}

struct RegistrosTraducao : testing::Test {
    RegistrosTraducao() {
        Desenho desenho;
        desenho.entidades = Texto("A1", "P", "Motor") + Texto("A2", "P", "Bomba");
        cena = std::make_unique<Cena>(desenho.Dxf());
    }
    OdDbDictionaryPtr Raiz() {
        return cena->Desenho().getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
    }
    OdDbDictionaryPtr Todos() { return Raiz()->getAt(VRN_TQ_OBJS_TRADS, OdDb::kForWrite); }
    OdDbDictionaryPtr Do(const char16_t* chave) { return Todos()->getAt(chave, OdDb::kForWrite); }
    Registros Ler(const char16_t* chave) { return *ReadObjectRecords(chave); }

    std::unique_ptr<Cena> cena;
};

TEST_F(RegistrosTraducao, AReadMakesTheDictionaryOfAllRecordsAndNothingElse) {
    EXPECT_THAT(Ler(u"A1"), testing::IsEmpty());
    ASSERT_FALSE(Todos().isNull());
    EXPECT_EQ(Todos()->numEntries(), 0u);
}

TEST_F(RegistrosTraducao, AWriteReplacesTheWholeSetAndLeavesTheReservedNameAlone) {
    SaveTermRecords(u"A1", {7, {u"Motor", u""}}, IdiomasEmUso({u"1", u"2"}));
    EXPECT_EQ(Ler(u"A1"), (Registros{{u"1", u"Motor"}, {u"2", u""}}));
    EObjStringPtr reservado = EObjString::createObject();
    reservado->setValue(u"theirs");
    Do(u"A1")->setAt(u"OBJ", reservado);

    SaveTermRecords(u"A1", {7, {u"Motor", u"Moteur \xD83D\xDE00"}}, IdiomasEmUso({u"1", u"3"}));
    EXPECT_EQ(Ler(u"A1"),
              (Registros{{u"1", u"Motor"}, {u"3", u"Moteur \xD83D\xDE00"}, {u"OBJ", u"theirs"}}));
    EXPECT_THAT(Ler(u"A2"), testing::IsEmpty());
    EXPECT_TRUE(Do(u"A2").isNull());
}

TEST_F(RegistrosTraducao, RecordsSurviveSavingAndReopening) {
    const TQString longo(std::u16string(3000, u'ç'));
    SaveTermRecords(u"A1_NOME", {-1, {longo, u" "}}, IdiomasEmUso({u"1", u"2"}));
    const std::string bytes = cena->Bytes();
    cena.reset();
    cena = std::make_unique<Cena>(bytes);
    EXPECT_EQ(Ler(u"A1_NOME"), (Registros{{u"1", longo}, {u"2", u" "}}));
}

TEST_F(RegistrosTraducao, TooFewTranslationsRaiseAndNothingIsWritten) {
    const std::string antes = cena->Bytes();
    EXPECT_THROW(SaveTermRecords(u"A1", {7, {u"Motor"}}, IdiomasEmUso({u"1", u"2"})),
                 std::out_of_range);
    EXPECT_EQ(cena->Bytes(), antes);
}

TEST_F(RegistrosTraducao, AnotherClassOnTheWayRaises) {
    const auto estranho = [] { return OdDbXrecord::createObject(); };
    SaveTermRecords(u"A1", {7, {u"Motor"}}, IdiomasEmUso({u"1"}));
    Do(u"A1")->setAt(u"2", estranho());
    EXPECT_THROW(Ler(u"A1"), OdError_NotThatKindOfClass);
    Todos()->setAt(u"A2", estranho());
    EXPECT_THROW(Ler(u"A2"), OdError_NotThatKindOfClass);
    EXPECT_THROW(WriteObjectRecords(u"A2", {{u"1", u"x"}}), OdError_NotThatKindOfClass);
    Raiz()->setAt(VRN_TQ_OBJS_TRADS, estranho());
    EXPECT_THROW(Ler(u"A1"), OdError_NotThatKindOfClass);
}

TEST_F(RegistrosTraducao, RandomWritesLeaveWhatTheLastOneHeld) {
    std::mt19937 acaso(7);
    std::map<std::u16string, std::map<std::u16string, TQString>> modelo;
    for (int vez = 0; vez < 200; ++vez) {
        const TQString chave(static_cast<int>(acaso() % 5 + 1), 1);
        Registros registros;
        for (int idioma = 1; idioma <= 6; ++idioma) {
            if (acaso() % 2) registros.emplace_back(TQString(idioma, 1), TQString(vez, 1));
        }
        WriteObjectRecords(chave, registros);
        modelo[chave] = {registros.begin(), registros.end()};
    }
    for (const auto& [chave, esperado] : modelo) {
        const Registros lidos = Ler(chave.c_str());
        EXPECT_EQ((std::map<std::u16string, TQString>(lidos.begin(), lidos.end())), esperado);
    }
}

TEST(RegistrosR12, ReadAsNoneAndCannotBeWritten) {
    const std::string bytes = Grupos("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|0 ENDSEC") +
                              Grupos("0 SECTION|2 ENTITIES|0 TEXT|5 A1|8 P|1 Motor") +
                              Grupos("0 ENDSEC|0 EOF");
    Cena cena(bytes);
    EXPECT_THAT(*ReadObjectRecords(u"A1"), testing::IsEmpty());
    EXPECT_THROW(WriteObjectRecords(u"A1", {{u"1", u"x"}}), OdError);
    EXPECT_EQ(cena.Bytes(), bytes);
}

struct TermosDoProjeto : RegistrosTraducao {
    TermosDoProjeto() {
        cena->servicos.database = (std::make_shared<BancoDeTeste>(
            std::vector<std::array<QString, 3>>{
                {"1", "Português", "1"}, {"2", "Deutsch", "1"}, {"3", "English", "0"}},
            3));
        Acrescentar<ETextoTrad>(objetos, u"Motor", u"A1");
        Acrescentar<ETextoTrad>(objetos, u"Bomba", u"00a2");  // another spelling of the handle
        Acrescentar<EAtributoVirtualTrad>(objetos, u"Virtual", u"A1", u"NOME", u"X");
        SaveTermRecords(u"A1_NOME", {-1, {u"Virtual", u"Virtuell"}}, IdiomasEmUso({u"1", u"2"}));
        SaveTermRecords(u"A2", {-1, {u"old", u"Pumpe", u"Pump"}}, IdiomasEmUso({u"1", u"2", u"3"}));
    }
    std::vector<std::vector<TQString>> Termos(const char16_t* idioma) {
        std::vector<std::vector<TQString>> termos;
        const auto traducoes = GetProjectTerms(*objetos, idioma);
        for (const auto& termo : traducoes->terms) {
            EXPECT_EQ(termo.key, -1);
            termos.push_back(termo.translations);
        }
        return termos;
    }
    ListaTraduziveis objetos = NovaLista();
};

TEST_F(TermosDoProjeto, TheCurrentLanguageShowsTheDrawingAndTheOthersTheRecords) {
    using Termos_ = std::vector<std::vector<TQString>>;
    // The records of a virtual attribute stand under a key with a suffix, which is not looked for.
    EXPECT_EQ(Termos(u"1"), (Termos_{{u"Motor", u""}, {u"Bomba", u"Pumpe"}, {u"Virtual", u""}}));
    EXPECT_EQ(Termos(u"2"), (Termos_{{u"", u"Motor"}, {u"old", u"Bomba"}, {u"", u"Virtual"}}));
    EXPECT_EQ(Termos(u"02"), (Termos_{{u"", u""}, {u"old", u"Pumpe"}, {u"", u""}}));
    EXPECT_EQ(GetProjectTerms(*objetos, u"3")->languages,
              (std::vector<TQString>{u"Português", u"Deutsch"}));
    EXPECT_THAT(GetProjectTerms({}, u"1")->languages, testing::IsEmpty());
}

}  // namespace
}  // namespace traducaoTQ
