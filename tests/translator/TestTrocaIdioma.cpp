// The switch of a whole project to another language, and the page groups.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <regex>

#include "platform/drawing/DbXrecord.h"
#include "tests/translator/BancoDeTeste.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/engine/GruposDePaginas.h"
#include "translator/engine/ITradCad.h"
#include "translator/engine/RegistrosTraducao.h"
#include "translator/engine/TrocaIdioma.h"

namespace traducaoTQ {
namespace {

using namespace dxfDeTeste;
using testing::ElementsAre;

// A project that the commands' scan passes: nothing but block references on its pages.
Desenho Projeto() {
    Desenho desenho;
    desenho.blocos = {{"B", "B0", Texto("B1", "0", "Motor") + Texto("B2", "0", "Bomba")}};
    desenho.entidades = Insercao("A0", "P", "B", {Atributo("A1", "T", "Painel")}) +
                        Insercao("A5", "Q", "B", {Atributo("A6", "T", "Cabo")});
    return desenho;
}

void Gravar(const char16_t* chave, const RegistrosObjeto& registros) {
    WriteObjectRecords(chave, registros);
}

std::vector<std::string> Textos() {
    std::vector<std::string> textos;
    const auto lista = ITradCad().BuscarTraduziveis(true, true, true, true, false, true, false);
    for (const ETraduzivel* objeto : *lista) {
        textos.push_back(OdString(*objeto->GetTexto()).narrowText());
    }
    return textos;
}

// Without the records, which a switch writes, and the counter of handles.
std::string SemRegistros(const std::string& bytes) {
    static const std::regex contador("\\$HANDSEED\n  5\n[0-9A-F]+");
    return std::regex_replace(bytes.substr(0, bytes.find("OBJECTS")), contador, "");
}

std::u16string TextoAoAcaso(std::mt19937& acaso) {
    static const std::u16string letras = u"abcXYZ019 áçñÖß%^\\{}\"Ωж漢";
    std::uniform_int_distribution<size_t> letra(0, letras.size() - 1), tamanho(1, 30);
    std::u16string texto(tamanho(acaso), u' ');
    for (char16_t& unidade : texto) unidade = letras[letra(acaso)];
    texto.front() = u'<';
    texto.back() = u'>';
    return texto;
}

// To B and back, also by way of C, also with an edit in between: everything says again what it
// said, and every byte but the records is what it was.
TEST(ChangeProjectLanguage, ThereAndBackRestoresEveryStringAndByte) {
    for (unsigned semente = 0; semente < 20; ++semente) {
        std::mt19937 acaso(semente);
        std::set<std::u16string> usados;
        const auto texto = [&] {
            std::u16string novo;
            do novo = TextoAoAcaso(acaso);
            while (!usados.insert(novo).second);
            return TQString(novo);
        };
        Desenho desenho;
        desenho.blocos = {{"B", "B0", ""}};
        for (int i = 0; i < 5; ++i) {
            desenho.blocos[0].entidades +=
                Texto("B" + std::to_string(i + 1), "0", std::to_string(i));
        }
        for (int i = 0; i < 8; ++i) {
            const std::string n = std::to_string(100 + 10 * i);
            desenho.entidades +=
                Insercao(n, i % 2 ? "P" : "Q", "B",
                         {Atributo(n + "A", "T", "x"), Atributo(n + "B", "U", "y")});
        }
        Cena cena(desenho.Dxf());
        const auto lista = ITradCad().BuscarTraduziveis(true, true, true, true, false, true, false);
        std::set<std::u16string> chaves;
        for (ETraduzivel* objeto : *lista) {
            if (!chaves.insert(objeto->GetChave()).second) continue;
            const TQString original = texto();
            Gravar(objeto->GetChave(), {{u"1", original}, {u"2", texto()}, {u"3", texto()}});
            objeto->SetTexto(original);
        }
        const auto um = Textos();
        const std::string antes = SemRegistros(cena.Bytes());
        ChangeProjectLanguage(u"1", u"2", false);
        EXPECT_EQ(cena.servicos.language, 2);
        const auto dois = Textos();
        ChangeProjectLanguage(u"2", u"1", true);
        EXPECT_EQ(Textos(), um);
        EXPECT_EQ(SemRegistros(cena.Bytes()), antes);
        for (const auto& [de, para] : {std::pair(u"1", u"2"), {u"2", u"3"}, {u"3", u"1"}}) {
            ChangeProjectLanguage(de, para, false);
        }
        EXPECT_EQ(SemRegistros(cena.Bytes()), antes);
        // An edit in language 2 comes back on the next switch to it.
        ChangeProjectLanguage(u"1", u"2", false);
        EXPECT_EQ(Textos(), dois);
        OdDbTextPtr(cena.Objeto(u"100A", OdDb::kForWrite))->setTextString(u"by hand");
        const std::string editado = SemRegistros(cena.Bytes());
        ChangeProjectLanguage(u"2", u"1", false);
        EXPECT_EQ(SemRegistros(cena.Bytes()), antes);
        ChangeProjectLanguage(u"1", u"2", false);
        EXPECT_EQ(SemRegistros(cena.Bytes()), editado);
    }
}

TEST(ChangeProjectLanguage, OnlyTextsWithARecordChangeAndTheOldOneIsRecordedFirst) {
    Cena cena(Projeto().Dxf());
    Gravar(u"A1", {{u"2", u"Panel"}});
    Gravar(u"A6", {{u"2", u" "}, {u"OBJ", u"kept"}});
    Gravar(u"B1", {{u"2", u"  "}});
    ChangeProjectLanguage(u"1", u"2", false);
    EXPECT_EQ(cena.TextoDe(u"A1"), u"Panel");
    EXPECT_EQ(cena.TextoDe(u"A6"), u"Cabo");
    EXPECT_EQ(cena.TextoDe(u"B1"), u"  ");
    EXPECT_EQ(cena.TextoDe(u"B2"), u"Bomba");
    EXPECT_EQ(*ReadObjectRecords(u"A1"), (RegistrosObjeto{{u"1", u"Painel"}, {u"2", u"Panel"}}));
    EXPECT_EQ(*ReadObjectRecords(u"A6"), (RegistrosObjeto{{u"2", u" "}, {u"OBJ", u"kept"}}));
    EXPECT_TRUE(ReadObjectRecords(u"B2")->empty());
    EXPECT_EQ(cena.Documento().redraws, 1);
    // With one language twice, record and text change places.
    ChangeProjectLanguage(u"2", u"2", false);
    EXPECT_EQ(cena.TextoDe(u"A1"), u"Panel");
    OdDbTextPtr(cena.Objeto(u"A1", OdDb::kForWrite))->setTextString(u"Board");
    ChangeProjectLanguage(u"2", u"2", false);
    EXPECT_EQ(cena.TextoDe(u"A1"), u"Panel");
    EXPECT_EQ(ReadObjectRecords(u"A1")->back().second, u"Board");
    ChangeProjectLanguage(u"2", u"abc", false);
    EXPECT_EQ(cena.servicos.language, 0);
}

TEST(ChangeProjectLanguage, AnEmptyDrawingIsInTheNewLanguageToo) {
    Cena cena(Desenho().Dxf());
    ChangeProjectLanguage(u"1", u"2", false);
    EXPECT_EQ(cena.servicos.language, 2);
    EXPECT_EQ(cena.Documento().redraws, 1);
    EXPECT_FALSE(cena.Desenho().isModified());
}

// The command has set the language by then; the scan stops at the line, and nothing else is done.
TEST(ChangeProjectLanguage, OnAMixedDrawingItFailsBeforeAnyText) {
    Desenho misto = Projeto();
    misto.entidades += Linha("A9", "Q");
    Cena cena(misto.Dxf());
    Gravar(u"A1", {{u"2", u"Panel"}});
    const std::string antes = cena.Bytes();
    cena.servicos.language = 2;
    EXPECT_THROW(ChangeProjectLanguage(u"1", u"2", false), OdError_NotThatKindOfClass);
    ASSERT_EQ(cena.servicos.log.size(), 1u);
    EXPECT_TRUE(
        cena.servicos.log[0].starts_with("traducaoTQ::ITradCad::BuscarAtributos : object A9 "))
        << cena.servicos.log[0];
    EXPECT_EQ(cena.servicos.language, 2);
    EXPECT_EQ(cena.Bytes(), antes);
    EXPECT_EQ(cena.Documento().redraws, 0);
}

TEST(ChangeProjectLanguage, AFailureInTheMiddleKeepsWhatWasDoneUntilAnUndo) {
    Cena cena(Projeto().Dxf());
    for (const char16_t* chave : {u"A1", u"B1", u"A6"}) Gravar(chave, {{u"2", u"Two"}});
    const OdDbDictionaryPtr raiz =
        cena.Desenho().getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
    const OdDbDictionaryPtr todos = raiz->getAt(VRN_TQ_OBJS_TRADS, OdDb::kForWrite);
    const OdDbDictionaryPtr doObjeto = todos->getAt(u"A6", OdDb::kForWrite);
    doObjeto->setAt(u"2", OdDbXrecord::createObject());
    const std::string antes = cena.Bytes();
    cena.Desenho().startUndoRecord();
    EXPECT_THROW(ChangeProjectLanguage(u"1", u"2", false), OdError_NotThatKindOfClass);
    cena.Desenho().endUndoRecord();
    EXPECT_EQ(cena.TextoDe(u"A1"), u"Two");
    EXPECT_EQ(cena.TextoDe(u"A6"), u"Cabo");
    EXPECT_EQ(cena.servicos.language, -1);
    cena.Desenho().undo();
    EXPECT_EQ(cena.Bytes(), antes);
}

struct Grupo : testing::Test {
    Grupo() : cena(Desenho().Dxf()) {
        banco = std::make_shared<BancoDeTeste>(
            std::vector<std::array<QString, 3>>{{"2", "English", "1"}}, 2);
        cena.servicos.database = banco;
        banco->Run("INSERT INTO BDGROUP VALUES ('A4', 1), ('A4', 2)");
        banco->Run("INSERT INTO BDPAGE VALUES (1)");
        // SELO 0, FORMATO 2, DE 3
        banco->Run("INSERT INTO BDPAGEBLOCKS VALUES (1, '2', '0', ' selo '), (1, '2', '3', '  ')");
        cena.Documento().lisp.variables["*DIRETORIO_REDE*"] = {u"/nowhere/"};
    }
    std::shared_ptr<BancoDeTeste> banco;
    Cena cena;
};

TEST_F(Grupo, TheStoreNamesNoneSoThatOnlyTheDisplayIsRegenerated) {
    RedefinePageGroups(u"2");
    EXPECT_EQ(cena.Documento().redraws, 1);
    EXPECT_FALSE(cena.Desenho().isModified());
}

TEST_F(Grupo, BlocksWithAPathAreRedefinedFromTheNetworkFolder) {
    cena.servicos.calls.clear();
    EXPECT_THROW(RedefinePageGroup(u"2", u"A4"), OdError);
    std::erase_if(cena.servicos.calls,
                  [](const auto& chamada) { return !chamada.starts_with("readFile"); });
    EXPECT_THAT(cena.servicos.calls, ElementsAre("readFile /nowhere/selo.dwg"));
    EXPECT_NO_THROW(RedefinePageGroup(u"1", u"A4"));
    EXPECT_EQ(cena.Documento().redraws, 0);
}

}  // namespace
}  // namespace traducaoTQ
