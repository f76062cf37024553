// The services for blocks and attributes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/cad/CEAtributo.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"

namespace tq {
namespace {

using namespace dxfDeTeste;
using testing::ElementsAre;
using testing::IsEmpty;

// A definition with a place, at the right of the others.
std::string Def(const std::string& handle, const std::string& tag, const std::string& texto,
                int marcas = 0) {
    return Grupos("0 ATTDEF|5 " + handle +
                  "|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 2.0|30 0.0|"
                  "40 2.5|1 " +
                  texto + "|100 AcDbAttributeDefinition|3 P" + handle + "|2 " + tag + "|70 " +
                  std::to_string(marcas));
}

struct Lista {
    ~Lista() {
        for (int i = 0; lida && i < lida->GetSize(); ++i) delete (*lida)[i];
        delete lida;
    }
    // Tag, prompt and text of each.
    std::vector<std::string> Textos() const {
        std::vector<std::string> textos;
        for (int i = 0; i < lida->GetSize(); ++i) {
            const CEAtributo& atributo = *(*lida)[i];
            textos.push_back(OdString(atributo.tag + u"/" + atributo.prompt + u"/" + atributo.valor)
                                 .narrowText());
        }
        return textos;
    }
    CEListaAtributos* lida = nullptr;
};

struct Blocos : testing::Test {
    Blocos() {
        Desenho desenho;
        desenho.blocos = {{"B", "B0",
                           Def("B1", "T", "d1") + Def("B2", "K", "c", 2) + Def("B3", "T", " d2 ") +
                               Def("B4", "U", "du")}};
        desenho.entidades = Insercao("A0", "P", "B",
                                     {Atributo("A1", "T", " um "), Atributo("A2", "T", ""),
                                      Atributo("A3", "U ", "x"), Atributo("A4", "K", "k")}) +
                            Insercao("A8", "P", "B");
        cena = std::make_unique<Cena>(desenho.Dxf());
    }
    OdDbBlockReferencePtr Referencia(const char16_t* handle) {
        return cena->Objeto(handle, OdDb::kForWrite);
    }
    OdDbBlockTableRecordPtr Bloco() { return cena->Objeto(u"B0"); }
    std::unique_ptr<Cena> cena;
    CICad cad;
};

TEST_F(Blocos, PromptsAndDefaultsSkipConstantsAndCountOccurrences) {
    EXPECT_EQ(cad.GetPrompt(Bloco(), u"T", 0), u"PB1");
    EXPECT_EQ(cad.GetPrompt(Bloco(), u"T", 1), u"PB3");
    EXPECT_EQ(cad.GetPrompt(Bloco(), u"T", 2), u"T");
    EXPECT_EQ(cad.GetPrompt(Bloco(), u"K", 0), u"K");
    EXPECT_EQ(cad.GetPrompt(Bloco(), u"t", 0), u"t");
    EXPECT_EQ(cad.GetTextoDefault(Bloco(), u"T"), u"d1");
    EXPECT_EQ(cad.GetTextoDefault(Bloco(), u"K"), u"");
    EXPECT_EQ(cad.GetTextoDefault({}, u"T"), u"");
}

TEST_F(Blocos, AttributesAreReadInTheirOrderTrimmed) {
    Lista todos, comDefault, prefixo, nenhum, vazia;
    EXPECT_EQ(cad.SearchAttributes(Referencia(u"A0"), &todos.lida, true, false, u""), 0);
    EXPECT_THAT(todos.Textos(), ElementsAre("T/PB1/um", "T/PB3/", "U/U/x", "K/K/k"));
    EXPECT_EQ(cad.SearchAttributes(Referencia(u"A0"), &comDefault.lida, false, true, u"T"), 0);
    EXPECT_THAT(comDefault.Textos(), ElementsAre("T//um", "T//d1"));
    EXPECT_EQ(cad.SearchAttributes(Referencia(u"A0"), &prefixo.lida, true, true, u"Z"), 0);
    EXPECT_THAT(prefixo.Textos(), IsEmpty());
    EXPECT_EQ(cad.SearchAttributes(Referencia(u"A8"), &vazia.lida, true, true, u""), 0);
    EXPECT_THAT(vazia.Textos(), IsEmpty());
    nenhum.lida = todos.lida;
    EXPECT_EQ(cad.SearchAttributes({}, &nenhum.lida, true, true, u""), 2);
    EXPECT_EQ(nenhum.lida, nullptr);
}

// Every record of a tag passes over every attribute of it: the last one stays, each pass counts,
// and what changed is visible, for the flag is that of constants.
TEST_F(Blocos, TheLastRecordOfATagWinsAndEveryPassCounts) {
    OdDbAttributePtr(cena->Objeto(u"A1", OdDb::kForWrite))->setInvisible(true);
    OdDbAttributePtr(cena->Objeto(u"A4", OdDb::kForWrite))->setInvisible(true);
    CEAtributo um(u"T", u"", u"novo", {}, false), dois(u"T", u"", u"dois", {}, false);
    CEAtributo constante(u"K", u"", u"k", {}, true);
    CEListaAtributos lista;
    for (CEAtributo* registro : {&um, &dois, &constante}) lista.Add(registro);
    int32_t contador = 0;
    EXPECT_TRUE(cad.AtualizarAtributos(Referencia(u"A0"), &lista, true, &contador));
    EXPECT_EQ(contador, 5);
    EXPECT_EQ(cena->TextoDe(u"A1"), u"dois");
    EXPECT_EQ(cena->TextoDe(u"A2"), u"dois");
    EXPECT_EQ(cena->TextoDe(u"A3"), u"x");
    EXPECT_FALSE(OdDbAttributePtr(cena->Objeto(u"A1"))->isInvisible());
    EXPECT_TRUE(OdDbAttributePtr(cena->Objeto(u"A4"))->isInvisible());
    EXPECT_TRUE(cad.AtualizarAtributos(Referencia(u"A8"), &lista, true, nullptr));
    EXPECT_FALSE(cad.AtualizarAtributos({}, &lista, true, nullptr));
}

TEST_F(Blocos, AreFoundInAnyDrawingByName) {
    OdDbObjectId id = OdDbObjectId(&cena->Desenho(), 7);
    const OdDbObjectId antes = id;
    EXPECT_FALSE(cad.ExisteBloco(u"C", id, &cena->Desenho()));
    EXPECT_EQ(id, antes);
    EXPECT_TRUE(cad.ExisteBloco(u"b", id, &cena->Desenho()));
    EXPECT_EQ(id.getHandle(), OdDbHandle(0xB0));
}

// The source of a replacement: layer "0" alone, a base point away from the origin.
Desenho Fonte() {
    Desenho fonte;
    fonte.camadas = {"0"};
    fonte.entidades = Def("51", "T", "novo") + Def("52", "N", "nt") + Linha("53", "0");
    return fonte;
}

OdDbDatabasePtr Aberto(std::string dxf) {
    dxf.replace(dxf.find("  9\n$HANDSEED"), 0, Grupos("9 $INSBASE|10 1.0|20 1.0|30 0.0"));
    return OdDbDatabase::fromStore(dxf::Store::Parse(std::move(dxf)));
}

TEST(RedefinirBloco, AThousandReferencesKeepTheirIdsPlacesAndValues) {
    Desenho desenho;
    desenho.blocos = {{"B", "B0", Def("B1", "T", "d") + Def("B2", "OLD", "o") + Linha("B3", "0")}};
    constexpr int QUANTAS = 1000;
    for (int i = 0; i < QUANTAS; ++i) {
        const std::string n = OdDbHandle(0x1000 + 8 * i).ascii().narrowText();
        const auto parte = [&](int k) {
            return OdDbHandle(0x1000 + 8 * i + k).ascii().narrowText();
        };
        desenho.entidades += Grupos("0 INSERT|5 " + n +
                                    "|330 1F|100 AcDbEntity|8 P|100 "
                                    "AcDbBlockReference|66 1|2 B|10 " +
                                    std::to_string(i) + ".5|20 7.0|30 0.0") +
                             Atributo(parte(1), "T", "v" + std::to_string(i)) +
                             Atributo(parte(2), "OLD", "gone") +
                             Grupos("0 SEQEND|5 " + parte(3) + "|330 " + n + "|8 0");
    }
    Cena cena(desenho.Dxf());
    const std::string antes = cena.Bytes();
    cena.Desenho().startUndoRecord();
    EXPECT_TRUE(CICad().RedefinirBloco(Aberto(Fonte().Dxf()), u"B"));
    cena.Desenho().endUndoRecord();

    for (int i = 0; i < QUANTAS; ++i) {
        const OdDbObjectPtr objeto = IdFromHandle(OdDbHandle(0x1000 + 8 * i)).openObject();
        const OdDbBlockReferencePtr referencia = objeto;
        std::vector<std::string> textos;
        for (auto p = referencia->attributeIterator(); !p->done(); p->step()) {
            const OdDbAttributePtr atributo = p->entity();
            textos.push_back((atributo->tag() + u"=" + atributo->textString()).narrowText());
        }
        ASSERT_THAT(textos, ElementsAre("T=v" + std::to_string(i), "N=nt"));
        ASSERT_EQ(referencia->blockTransform().origin, (OdGeVector3d{i + 0.5, 7, 0}));
    }
    // The content moved by minus the base point, and the block starts at the origin.
    const OdDbBlockTableRecordPtr bloco = cena.Objeto(u"B0");
    EXPECT_EQ(bloco->origin(), OdGePoint3d());
    const std::string depois = cena.Bytes();
    EXPECT_NE(depois.find(Grupos("10 -1.0|20 -1.0|11 0.0|21 -1.0")), std::string::npos);
    EXPECT_NE(depois.find(Grupos("10 0.5|20 8.0|30 0.0|40 2.5|1 v0|100 AcDbAttribute|2 T")),
              std::string::npos);
    for (const char* sobra : {"TQ_TMP_", "gone", "\nOLD\n"}) {
        EXPECT_EQ(depois.find(sobra), std::string::npos) << sobra;
    }
    cena.Desenho().undo();
    EXPECT_EQ(cena.Bytes(), antes);
    cena.Desenho().redo();
    EXPECT_EQ(cena.Bytes(), depois);
}

TEST(RedefinirBloco, WithoutASourceOnlyANewNameSucceeds) {
    Desenho desenho;
    desenho.blocos = {{"B", "B0", Linha("B3", "0")}};
    Cena cena(desenho.Dxf());
    EXPECT_TRUE(CICad().RedefinirBloco(OdDbDatabasePtr(), u"NEW"));
    EXPECT_FALSE(CICad().RedefinirBloco(OdDbDatabasePtr(), u"B"));
    EXPECT_FALSE(cena.Desenho().isModified());
    EXPECT_TRUE(CICad().RedefinirBloco(Aberto(Fonte().Dxf()), u"NEW"));
    OdDbObjectId id;
    EXPECT_TRUE(CICad().ExisteBloco(u"NEW", id, &cena.Desenho()));
}

// Source files: what is refused leaves the drawing alone and says why.
struct Recusa {
    const char* nome;
    std::string dxf;  // "" for a file that is not there
    int mensagem;     // 0: none
    bool aceito, erro;
};

class Fontes : public testing::TestWithParam<Recusa> {};

TEST_P(Fontes, AreTakenOrRefusedWithTheReason) {
    const Recusa& caso = GetParam();
    const std::string arquivo = testing::TempDir() + "fonte" + std::to_string(getpid()) + ".dxf";
    std::remove(arquivo.c_str());
    if (!caso.dxf.empty()) std::ofstream(arquivo) << caso.dxf;
    Desenho desenho;
    desenho.blocos = {{"B", "B0", Linha("B3", "0")}};
    Cena cena(desenho.Dxf());
    const TQString caminho = TQString("//") + TQString(arquivo.substr(1).c_str());
    if (caso.erro) {
        EXPECT_THROW(CICad().RedefinirBloco(caminho, u"B"), OdError);
        ASSERT_EQ(cena.servicos.log.size(), 1u);
        EXPECT_TRUE(cena.servicos.log[0].starts_with("tq::CICad::RedefinirBloco : "));
    } else {
        EXPECT_EQ(CICad().RedefinirBloco(caminho, u"B"), caso.aceito);
    }
    EXPECT_EQ(cena.Desenho().isModified(), caso.aceito);
    if (caso.mensagem) {
        const OdString linha = u"\n" + CICad().GetMensagemINC(caso.mensagem) + u"B = " +
                               TQString(arquivo.c_str()) + u"\n";
        EXPECT_THAT(cena.Documento().lisp.printed, ElementsAre(linha.narrowText()));
    } else {
        EXPECT_THAT(cena.Documento().lisp.printed, IsEmpty());
    }
    std::remove(arquivo.c_str());
}

std::string ComReferencia(const std::string& bloco) {
    Desenho fonte = Fonte();
    fonte.blocos = {{bloco, "60", Linha("61", "0")}};
    fonte.entidades += Insercao("62", "0", bloco);
    return fonte.Dxf();
}

std::string ComCamadas(std::vector<std::string> camadas) {
    Desenho fonte = Fonte();
    fonte.camadas = std::move(camadas);
    return fonte.Dxf();
}

INSTANTIATE_TEST_SUITE_P(
    RedefinirBloco, Fontes,
    testing::Values(Recusa{"OneLayer", Fonte().Dxf(), 0, true, false},
                    Recusa{"TwoLayers", ComCamadas({"0", "X"}), 17, false, false},
                    Recusa{"NamedBlock", ComReferencia("NAMED"), 18, false, false},
                    Recusa{"AnonymousBlock", ComReferencia("*U3"), 0, true, false},
                    Recusa{"Damaged", "  0\nSECTION\n  2\n", 0, false, true},
                    Recusa{"Absent", "", 0, false, true}),
    [](const auto& info) { return info.param.nome; });

}  // namespace
}  // namespace tq
