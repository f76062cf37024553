// The scan of a drawing: what is found, in which order, under which keys.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbText.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/cad/CICad.h"
#include "translator/engine/ITradCad.h"

namespace traducaoTQ {
namespace {

using namespace dxfDeTeste;
using Achados = std::vector<std::string>;

std::string Utf8(const TQString& texto) { return QString(texto).toStdString(); }

Achados Listar(const ListaTraduziveis& lista) {
    Achados achados;
    for (const ETraduzivel* traduzivel : *lista) {
        achados.push_back(std::string(NomeTipo(traduzivel->GetTipo())) + " " +
                          Utf8(traduzivel->GetChave()) + " " + Utf8(*traduzivel->GetTexto()));
    }
    return achados;
}

// A page of block references only, with its title block, and a second one.
Desenho ProjetoDeBlocos() {
    Desenho desenho;
    desenho.camadas = {"0", "Q", "P", "P$DE", "P$FORMATO", "Tq_Freeze"};
    desenho.blocos = {
        {"SIMB", "30",
         Texto("31", "0", " Motor\t") + DefAtributo("32", "T", "Nome?", "Padrão") +
             MTexto("33", "0", "mtext") + Insercao("34", "0", "NINHO") + Texto("35", "0", "  ")},
        {"NINHO", "40", Texto("41", "0", "nested")}};
    desenho.entidades =
        Insercao("A1", "P", "SIMB", {Atributo("A2", "T", " Bomba "), Atributo("A3", "U", " ")}) +
        Insercao("B1", "Q", "SIMB", {Atributo("B2", "T", "12")}) +
        Insercao("C1", "P$FORMATO", "SIMB") +
        Insercao("D1", "P$DE", "NINHO", {Atributo("D2", "T", "Folha")}) +
        Insercao("E1", "0", "SIMB", {Atributo("E2", "T", "layer 0")}) +
        Insercao("E3", "TQ_FREEZE", "SIMB", {Atributo("E4", "T", "frozen")}) +
        Insercao("E5", "p", "NOWHERE", {Atributo("E6", "T", "lower")});
    return desenho;
}

// Pages as other programs draw them: lines and texts beside blocks; wires; virtual attributes.
Desenho ProjetoMisto() {
    Desenho desenho;
    desenho.camadas = {"0", "P", "Q"};
    desenho.blocos = {{"SIMB", "30", Texto("31", "0", "Motor")}};
    desenho.entidades =
        Texto("A1", "Q", "  Texto Q ") + Linha("A2", "P") + Fio("A3", "P", {"F1^LFio P"}) +
        MTexto("A4", "P", " {\\fArial;Nota}\\P ") + Texto("A5", "P", "   ") +
        Insercao("A6", "P", "SIMB", {Atributo("A7", "T", "Bomba")}) + Texto("A8", "0", "zero") +
        Fio("A9", "Q",
            {" F2^LFio Q ", "semseparador", "F3^LX^Lresto", "^LF4^L^LY", "F5^L ", "F6^L  ^Lx"}) +
        DefAtributo("AA", "T", "Nome?", "Solta") + Texto("AB", "P", "erased") +
        Grupos("0 CIRCLE|5 AC|330 1F|100 AcDbEntity|8 P|100 AcDbCircle|10 0|20 0|40 1") +
        Grupos("1001 VRN_TQ_WIRE|1070 1|1070 2|1000 F9^Lno wire") +
        Grupos("0 TEXT|5 AD|330 1E|67 1|100 AcDbEntity|8 P|100 AcDbText|1 paper") +
        Grupos(
            "0 LWPOLYLINE|5 AE|330 1F|100 AcDbEntity|8 P|100 AcDbPolyline|90 0"
            "|1001 VRN_TQ_WIRE|1000 G1^La|1000 G2^Lb|1005 G3^Lc|1000 G4^Ld");
    desenho.entradasDaRaiz = "3 ESQ_VIRTUAL_TQ|350 D1";
    desenho.objetos =
        Grupos("0 DICTIONARY|5 D1|330 C|100 AcDbDictionary|281 1|3 Zeta|350 D2|3 alfa|350 D3") +
        Virtual("D2", {"N^L Texto ^LX", "V^L^LX", "Dois^Lcampos", "M^LOutro^LX^Lresto"}) +
        Grupos("1005 N2^Lhandle^LX") + Virtual("D3", {"N^LPrimeiro^LX"}) +
        Virtual("D4", {"N^Lnot in the dictionary^LX"});
    return desenho;
}

struct Marcas {
    bool atributos, textos, fios, blocoTextos, defAtributos, todas, camadas;
};

ListaTraduziveis Buscar(Marcas m) {
    return ITradCad().BuscarTraduziveis(m.atributos, m.textos, m.fios, m.blocoTextos,
                                        m.defAtributos, m.todas, m.camadas);
}

Achados Misto(ITradCad::Pedido pedido) {
    return Listar(ITradCad().BuscarTraduziveisMistos(pedido));
}

TQStringList Nomes(const std::vector<TQString>& nomes) { return TQStringList(nomes); }

TEST(BuscarTraduziveis, KeepsThePagesOrderThenTheDrawingsAndStaysAtOneObject) {
    Cena cena(ProjetoDeBlocos().Dxf());
    EXPECT_THAT(Listar(Buscar({true, true, true, true, false, true, true})),
                testing::ElementsAre("attribute B2 12", "block-text 31 Motor",  // Q
                                     "attribute A2 Bomba", "block-text 31 Motor",
                                     "attribute E6 lower",  // P, whatever the spelling
                                     "attribute D2 Folha", "block-text 41 nested",  // P$DE
                                     "block-text 31 Motor"));                       // P$FORMATO
    EXPECT_THAT(cena.servicos.preparedApplications, testing::ElementsAre("VRN_TQ_ATT_VIRTUAL"));
}

TEST(BuscarTraduziveis, TakesTheChosenPagesAndBehindThemTheirBlockLayersInReverse) {
    struct Caso {
        std::vector<TQString> escolhidas;
        bool camadas;
        std::vector<std::string> achados;
    };
    const Caso casos[] = {
        {{}, true, {}},
        {{u"p"}, false, {}},  // differs in case
        {{u"0", u"TQ_FREEZE", u"tq_freeze"}, true, {}},
        {{u"P"}, false, {"attribute A2 Bomba", "attribute E6 lower"}},
        {{u"P"}, true, {"attribute A2 Bomba", "attribute E6 lower", "attribute D2 Folha"}},
        {{u"P$X"}, true, {"attribute D2 Folha"}},  // a name is cut to its page
        {{u"$P", u"Q"}, true, {"attribute B2 12", "attribute D2 Folha"}},
        {{u"Q", u"Q"}, false, {"attribute B2 12", "attribute B2 12"}},
    };
    Cena cena(ProjetoDeBlocos().Dxf());
    for (const Caso& caso : casos) {
        cena.EscolherPaginas(caso.escolhidas);
        EXPECT_EQ(Listar(Buscar({true, false, false, false, false, false, caso.camadas})),
                  caso.achados);
    }
}

TEST(BuscarTraduziveis, AddsTheBlockLayersOfTheLastPageFirst) {
    Desenho desenho;
    desenho.camadas = {"0", "P", "Q"};
    for (const char* nome : {"P$DE", "P$SELO", "P$FORMATO", "Q$DE", "Q$SELO", "Q$FORMATO"}) {
        desenho.entidades += Texto("A" + std::to_string(desenho.camadas.size()), nome, nome);
        desenho.camadas.push_back(nome);
    }
    Cena cena(desenho.Dxf());
    cena.EscolherPaginas({u"P", u"Q"});
    EXPECT_THAT(Listar(Buscar({false, true, false, false, false, false, true})),
                testing::ElementsAre("text A8 Q$FORMATO", "text A7 Q$SELO", "text A6 Q$DE",
                                     "text A5 P$FORMATO", "text A4 P$SELO", "text A3 P$DE"));
}

TEST(BuscarTraduziveis, EachFlagRunsItsCollectorAndVirtualAttributesAlwaysCome) {
    const Achados virtuais = {"virtual-attribute D3_N Primeiro", "virtual-attribute D2_N Texto",
                              "virtual-attribute D2_M Outro"};
    struct Caso {
        Marcas marcas;
        std::vector<std::string> achados;
    };
    const Caso casos[] = {
        {{false, false, false, false, false, true, false}, {}},
        {{false, true, false, false, false, true, false},
         {"text A4 {\\fArial;Nota}\\P", "text A1 Texto Q"}},
        {{false, false, true, false, false, true, false},
         {"wire A3 Fio P", "wire AE c", "wire AE d", "wire A9 Fio Q", "wire A9 X", "wire A9 Y"}},
        {{false, false, false, true, false, true, false}, {"block-text 31 Motor"}},
    };
    Cena cena(ProjetoMisto().Dxf());
    cena.Objeto(u"AB", OdDb::kForWrite)->erase();
    for (Caso caso : casos) {
        caso.achados.insert(caso.achados.end(), virtuais.begin(), virtuais.end());
        EXPECT_EQ(Listar(Buscar(caso.marcas)), caso.achados);
    }
}

TEST(BuscarTraduziveis, StopsAtWhatIsNoBlockReferenceWithALogLine) {
    Cena cena(ProjetoMisto().Dxf());
    EXPECT_THROW(Buscar({true, true, true, true, false, true, false}), OdError_NotThatKindOfClass);
    EXPECT_THAT(
        cena.servicos.log,
        testing::ElementsAre(testing::StartsWith("traducaoTQ::ITradCad::BuscarAtributos : ")));
    EXPECT_EQ(cena.servicos.loggedTo, std::vector<const CMxDocument*>{cena.servicos.active});
    // The collector of definitions raises too, and has no handler.
    EXPECT_THROW(Buscar({false, false, false, false, true, true, false}),
                 OdError_NotThatKindOfClass);
    EXPECT_EQ(cena.servicos.log.size(), 1u);
}

TEST(BuscarTraduziveis, DefinitionsComeOnRequestWithTagAndPromptAsTheyStand) {
    Cena cena(ProjetoDeBlocos().Dxf());
    cena.EscolherPaginas({u"Q"});
    const auto lista = Buscar({false, false, false, false, true, false, false});
    ASSERT_THAT(Listar(lista), testing::ElementsAre("attribute-definition 32 Padrão"));
    const auto& definicao = dynamic_cast<EDefAtributoTrad&>(*lista->front());
    EXPECT_EQ(definicao.GetTag(), u"T");
    EXPECT_EQ(definicao.GetPrompt(), u"Nome?");
}

TEST(BuscarTraduziveis, WithoutADocumentOrASchemeThereIsNothing) {
    {
        Cena cena;
        EXPECT_THAT(Listar(Buscar({true, true, true, true, true, true, true})), testing::IsEmpty());
        EXPECT_THAT(Listar(Buscar({true, true, true, true, true, false, true})),
                    testing::IsEmpty());
    }
    Desenho desenho;
    desenho.entradasDaRaiz = "3 ESQ_VIRTUAL_TQ|350 D2";
    desenho.objetos = Virtual("D2", {"N^LTexto^LX"});
    Cena cena(desenho.Dxf());
    EXPECT_THROW(Buscar({false, false, false, false, false, true, false}),
                 OdError_NotThatKindOfClass);  // the entry is no dictionary
}

TEST(BuscarTraduziveisMistos, CallsEachCollectorOnlyForWhatItTakes) {
    Cena cena(ProjetoMisto().Dxf());
    const TQStringList paginas = Nomes({u"P", u"0", u"Q"});
    const Achados virtuais = {"virtual-attribute D3_N Primeiro", "virtual-attribute D2_N Texto",
                              "virtual-attribute D2_M Outro"};
    Achados tudo = {"text A4 {\\fArial;Nota}\\P",
                    "attribute A7 Bomba",
                    "block-text 31 Motor",
                    "text AB erased",
                    "text A1 Texto Q",
                    "wire A3 Fio P",
                    "wire AE c",
                    "wire AE d",
                    "wire A9 Fio Q",
                    "wire A9 X",
                    "wire A9 Y"};
    tudo.insert(tudo.end(), virtuais.begin(), virtuais.end());
    EXPECT_EQ(Misto({paginas}), tudo);
    EXPECT_THAT(cena.servicos.log, testing::IsEmpty());

    Achados comCamada0 = tudo;
    comCamada0.insert(comCamada0.begin() + 4, {"text A8 zero", "text AA Solta"});
    EXPECT_EQ(Misto({.paginas = paginas, .incluirCamada0 = true}), comCamada0);

    EXPECT_EQ(Misto({.paginas = paginas, .atributos = false, .textos = false}), virtuais);
    EXPECT_EQ(Misto({.paginas = Nomes({u"P$A"}), .camadasDePagina = true}), virtuais);
}

TEST(BuscarTraduziveisMistos, ALayerThatAlsoComesWithItsPageCountsOnce) {
    const Cena cena(ProjetoDeBlocos().Dxf());
    const Achados umaVez = Misto({.paginas = Nomes({u"P", u"P$DE", u"P$FORMATO"})});
    EXPECT_THAT(umaVez, testing::Contains("attribute D2 Folha"));
    EXPECT_EQ(Misto({.paginas = Nomes({u"P", u"P$DE"}), .camadasDePagina = true}), umaVez);
}

// Drawings from the folder that KV_DRAWINGS names, else the project's own.
std::vector<std::filesystem::path> Desenhos() {
    const char* pasta = std::getenv("KV_DRAWINGS");
    std::vector<std::filesystem::path> arquivos;
    for (const auto& entrada : std::filesystem::recursive_directory_iterator(
             pasta ? pasta : KV_SOURCE_DIR "/tests/fixtures")) {
        if (entrada.path().extension() == ".dxf") arquivos.push_back(entrada.path());
    }
    return arquivos;
}

std::string Conteudo(const std::filesystem::path& arquivo) {
    std::ifstream entrada(arquivo, std::ios::binary);
    std::ostringstream bytes;
    bytes << entrada.rdbuf();
    return bytes.str();
}

// What the layers hold, by a walk of the model space per layer that uses no index.
Achados TextosPorPercurso(OdDbDatabase& desenho) {
    Achados achados;
    const OdDbBlockTableRecordPtr modelo = desenho.getModelSpaceId().openObject();
    for (const TQString& camada : tq::CICad().GetLayers(&desenho)) {
        if (camada.EqualsNoCase(u"0") || camada.EqualsNoCase(u"tq_freeze")) continue;
        for (auto percurso = modelo->newIterator(); !percurso->done(); percurso->step()) {
            const OdDbEntityPtr entidade = percurso->entity();
            if (entidade->isKindOf(OdDbText::desc()) && TQString(entidade->layer()) == camada) {
                OdString texto = OdDbTextPtr(entidade)->textString();
                const TQString aparado = texto.trimLeft().trimRight();
                if (aparado.empty()) continue;
                achados.push_back("text " + Utf8(TQString(entidade->handle())) + " " +
                                  Utf8(aparado));
            }
        }
    }
    return achados;
}

TEST(BuscarTraduziveis, RealDrawingsGiveTheSameByBothScansAndByAPlainWalk) {
    int lidos = 0, recusados = 0;
    for (const auto& arquivo : Desenhos()) {
        SCOPED_TRACE(arquivo.filename());
        std::unique_ptr<Cena> cena;
        try {
            cena = std::make_unique<Cena>(Conteudo(arquivo));
        } catch (const std::exception&) {
            ++recusados;  // no drawing, or not a whole one
            continue;
        }
        ++lidos;
        const ITradCad::Pedido pedido = {.paginas = tq::CICad().GetLayers(&cena->Desenho()),
                                         .atributos = false};
        const Achados estrito = Listar(Buscar({false, true, false, true, false, true, false}));
        EXPECT_EQ(Misto(pedido), estrito);

        Achados textos;
        const auto lista = Buscar({false, true, false, false, false, true, false});
        for (const ETraduzivel* traduzivel : *lista) {
            const OdDbObjectPtr objeto =
                cena->Desenho()
                    .getOdDbObjectId(OdDbHandle(traduzivel->GetChave().c_str()))
                    .openObject();
            if (traduzivel->GetTipo() != TipoTexto || !objeto->isKindOf(OdDbText::desc())) continue;
            textos.push_back("text " + Utf8(traduzivel->GetChave()) + " " +
                             Utf8(*traduzivel->GetTexto()));
        }
        EXPECT_EQ(textos, TextosPorPercurso(cena->Desenho()));
    }
    EXPECT_GT(lidos, 0);
    EXPECT_LE(recusados, 3);
}

}  // namespace
}  // namespace traducaoTQ
