// Writing translated texts into a drawing: the file may differ in the expected places only.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/DbSymbolTable.h"
#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {
namespace {

using namespace dxfDeTeste;

std::string Projeto() {
    Desenho desenho;
    desenho.blocos = {{"SIMB", "30",
                       Texto("31", "0", "Motor") + Texto("32", "0", "Motor") +
                           Texto("33", "0", " Bomba ") +
                           DefAtributo("34", "TAG", "Nome?", "Valor")}};
    desenho.entidades =
        Texto("A1", "P", "Motor") + MTexto("A2", "P", "{\\fArial;Motor}\\PGiro") +
        Insercao("A3", "P", "SIMB", {Atributo("A4", "TAG", "Motor"), Atributo("A5", "X", "Giro")}) +
        Linha("A6", "P") +
        Fio("A7", "P", {"F1^LMotor", "F2^LGiro^Lresto", "F1^LBomba", "F3", "F4^L^LMotor"}) +
        Linha("A8", "P") + Grupos("1001 VRN_TQ_WIRE|1070 7|1070 8|1000 F1^LMotor") +
        Fio("A9", "P", {});
    desenho.entradasDaRaiz = "3 ESQ_VIRTUAL_TQ|350 D1";
    desenho.objetos =
        Grupos("0 DICTIONARY|5 D1|330 C|100 AcDbDictionary|281 1|3 UM|350 D2") +
        Virtual("D2",
                {"A^LMotor^LX", "B^L^LY", "C^LMotor", "A^LGiro^LZ^Lresto", "D^LGiro^LZ^Lresto"}) +
        Grupos("1070 5") + Virtual("D3", {"E^LMotor^LX"}) + Grupos("999 nota|1070 5") +
        Virtual("D4", {"F^LMotor^LX"}) + Grupos("1001 VRN_TQ_ATT_VIRTUAL|1000 G^LMotor^LX") +
        Virtual("D5", {"H^LP\\U+00F3rtico^LX"});
    return desenho.Dxf();
}

struct Troca {
    std::string antes, depois;
};

std::string Trocado(std::string bytes, const std::vector<Troca>& trocas) {
    for (const Troca& troca : trocas) {
        const size_t lugar = bytes.find(troca.antes);
        EXPECT_NE(lugar, std::string::npos) << troca.antes;
        if (lugar != std::string::npos) bytes.replace(lugar, troca.antes.size(), troca.depois);
    }
    return bytes;
}

template <class E, class... Argumentos>
std::function<std::unique_ptr<ETraduzivel>()> Um(Argumentos... argumentos) {
    return [=] { return std::make_unique<E>(TQString(argumentos)...); };
}

struct Caso {
    const char* nome;
    std::function<std::unique_ptr<ETraduzivel>()> lugar;
    TQString novo;
    std::vector<Troca> trocas;  // of the file's bytes; none: the file stays as it is
    bool falha = false;         // OdError_NotThatKindOfClass
};

const Caso kCasos[] = {
    {"attribute",
     Um<EAtributoTrad>(u"Motor", u"A4"),
     u" Drive\\P ",
     {{"A4\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n  1\nMotor\n",
       "A4\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n  1\n Drive\\P \n"}}},
    {"attribute whose handle names a line", Um<EAtributoTrad>(u"Motor", u"A6"), u"x", {}, true},
    {"attribute whose handle names a text", Um<EAtributoTrad>(u"Motor", u"A1"), u"x", {}, true},
    {"attribute that is not there", Um<EAtributoTrad>(u"Motor", u"777"), u"x", {}},
    {"attribute without a handle", Um<EAtributoTrad>(u"Motor", u""), u"x", {}},
    {"attribute definition", Um<EDefAtributoTrad>(u"TAG", u"Nome?", u"Valor", u"34"), u"x", {}},
    {"text",
     Um<ETextoTrad>(u"Motor", u"A1"),
     u"Drive",
     {{"AcDbText\n  1\nMotor\n100\nAcDbText\n  0\nMTEXT",
       "AcDbText\n  1\nDrive\n100\nAcDbText\n  0\nMTEXT"}}},
    {"text to nothing",
     Um<ETextoTrad>(u"Motor", u"A1"),
     u"",
     {{"AcDbText\n  1\nMotor\n100\nAcDbText\n  0\nMTEXT",
       "AcDbText\n  1\n\n100\nAcDbText\n  0\nMTEXT"}}},
    {"text that is an attribute",
     Um<ETextoTrad>(u"Giro", u"A5"),
     u"Spin",
     {{"  1\nGiro\n100\nAcDbAttribute", "  1\nSpin\n100\nAcDbAttribute"}}},
    {"mtext, formatting codes included",
     Um<ETextoTrad>(u"?", u"A2"),
     u"Drive\\PSpin",
     {{"{\\fArial;Motor}\\PGiro", "Drive\\PSpin"}}},
    {"text whose handle names a line", Um<ETextoTrad>(u"Motor", u"A6"), u"x", {}},
    {"wire", Um<EFioXdataTrad>(u"Motor", u"F1", u"A7"), u"Drive", {{"F1^LMotor", "F1^LDrive"}}},
    {"wire, the second separator and what follows are lost",
     Um<EFioXdataTrad>(u"Giro", u"F2", u"A7"),
     u"Spin",
     {{"F2^LGiro^Lresto", "F2^LSpin"}}},
    {"wire that has the text already", Um<EFioXdataTrad>(u"x", u"F2", u"A7"), u"Giro", {}},
    {"wire, first equal entry rules", Um<EFioXdataTrad>(u"Bomba", u"F1", u"A7"), u"Motor", {}},
    {"wire with one field",
     Um<EFioXdataTrad>(u"", u"F3", u"A7"),
     u"Neu",
     {{"1000\nF3\n", "1000\nF3^LNeu\n"}}},
    {"wire with neighbouring separators", Um<EFioXdataTrad>(u"Motor", u"F4", u"A7"), u"Motor", {}},
    {"wire, unknown field", Um<EFioXdataTrad>(u"Motor", u"f1", u"A7"), u"x", {}},
    {"wire that is no polyline", Um<EFioXdataTrad>(u"Motor", u"F1", u"A8"), u"x", {}},
    {"wire without strings", Um<EFioXdataTrad>(u"Motor", u"F1", u"A9"), u"x", {}},
    {"virtual attribute",
     Um<EAtributoVirtualTrad>(u"Motor", u"D2", u"A", u"?"),
     u"Drive",
     {{"A^LMotor^LX", "A^LDrive^LX"}}},
    {"virtual attribute with an empty text",
     Um<EAtributoVirtualTrad>(u"", u"D2", u"B", u"Y"),
     u"Drive",
     {{"B^L^LY", "B^LDrive^LY"}}},
    {"virtual attribute with two fields",
     Um<EAtributoVirtualTrad>(u"Motor", u"D2", u"C", u""),
     u"Drive",
     {}},
    {"virtual attribute with four fields",
     Um<EAtributoVirtualTrad>(u"Giro", u"D2", u"D", u"Z"),
     u"Spin",
     {{"D^LGiro^LZ^Lresto", "D^LSpin^LZ"}}},
    {"virtual attribute with a comment behind it",
     Um<EAtributoVirtualTrad>(u"Motor", u"D3", u"E", u"X"),
     u"Drive",
     {{"E^LMotor^LX", "E^LDrive^LX"}}},
    {"virtual attribute ahead of other data of the application",
     Um<EAtributoVirtualTrad>(u"Motor", u"D4", u"F", u"X"),
     u"Drive",
     {{"F^LMotor^LX", "F^LDrive^LX"}}},
    {"virtual attribute that has the text already, in another spelling",
     Um<EAtributoVirtualTrad>(u"x", u"D5", u"H", u"X"),
     u"P\u00F3rtico",
     {}},
    {"virtual attribute, unknown name",
     Um<EAtributoVirtualTrad>(u"Motor", u"D2", u"a", u"X"),
     u"Drive",
     {}},
    {"virtual attribute of an object without the data",
     Um<EAtributoVirtualTrad>(u"Motor", u"A6", u"A", u"X"),
     u"Drive",
     {}},
    {"virtual attribute that is not there",
     Um<EAtributoVirtualTrad>(u"Motor", u"777", u"A", u"X"),
     u"Drive",
     {}},
};

TEST(SetTexto, ChangesThePlaceItNamesAndNothingElse) {
    const std::string original = Projeto();
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nome);
        Cena cena(original);
        const auto lugar = caso.lugar();
        const TQString* antes = lugar->GetTexto();
        if (caso.falha) {
            EXPECT_THROW(lugar->SetTexto(caso.novo), OdError_NotThatKindOfClass);
        } else {
            lugar->SetTexto(caso.novo);
        }
        EXPECT_EQ(cena.Bytes(), Trocado(original, caso.trocas));
        EXPECT_EQ(lugar->GetTexto(), antes);  // what was read stays what was read
    }
}

TEST(SetTexto, ErasedObjectsAndAMissingDrawingArePassedOver) {
    for (const bool comDesenho : {true, false}) {
        const auto dono = comDesenho ? std::make_unique<Cena>(Projeto()) : std::make_unique<Cena>();
        Cena& cena = *dono;
        std::string bytes;
        if (comDesenho) {
            for (const char16_t* handle :
                 {u"A1", u"A2", u"A3", u"A7", u"D2", u"D3", u"D4", u"D5"}) {
                cena.Objeto(handle, OdDb::kForWrite)->erase();
            }
            bytes = cena.Bytes();
        }
        for (const Caso& caso : kCasos) {
            if (caso.falha) continue;
            SCOPED_TRACE(caso.nome);
            EXPECT_NO_THROW(caso.lugar()->SetTexto(u"x"));
        }
        if (comDesenho) {
            EXPECT_EQ(cena.Bytes(), bytes);
        }
    }
}

TEST(SetTexto, AWireThatHasTheTextAlreadyIsNotOpenedForWrite) {
    Cena cena(Projeto());
    const OdDbObjectPtr fio = cena.Objeto(u"A7");
    EFioXdataTrad traduzivel(u"Motor", u"F1", u"A7");
    traduzivel.SetTexto(u"Motor");
    EXPECT_FALSE(fio->isWriteEnabled());
    traduzivel.SetTexto(u"Drive");
    EXPECT_TRUE(fio->isWriteEnabled());
}

struct BlocoTexto : testing::Test {
    std::string original = Projeto();
    Cena cena{original};
    OdDbObjectId bloco = cena.Desenho().getOdDbObjectId(OdDbHandle("30"));
};

TEST_F(BlocoTexto, ChangesTheFirstOfEqualTextsAndThenLooksForTheNewerOne) {
    EBlocoTextoTrad traduzivel(u"Motor", u"32", bloco);
    traduzivel.SetTexto(u"Drive");
    EXPECT_EQ(cena.TextoDe(u"31"), u"Drive");
    EXPECT_EQ(cena.TextoDe(u"32"), u"Motor");
    EXPECT_EQ(*traduzivel.GetTexto(), u"Drive");
    traduzivel.SetTexto(u"Antrieb");
    EXPECT_EQ(cena.TextoDe(u"31"), u"Antrieb");
    EXPECT_EQ(cena.TextoDe(u"32"), u"Motor");
}

TEST_F(BlocoTexto, WhatIsNotFoundStaysAndTheNewTextIsTakenOverAllTheSame) {
    const std::pair<OdDbObjectId, const char16_t*> casos[] = {
        {bloco, u"Bomba"},  // drawn with blanks around it
        {bloco, u"motor"},
        {bloco, u"Valor"},  // of an attribute definition
        {bloco, u" "},
        {OdDbObjectId::kNull, u"Motor"}};
    for (const auto& [id, texto] : casos) {
        EBlocoTextoTrad traduzivel(texto, u"31", id);
        traduzivel.SetTexto(u"");
        ASSERT_NE(traduzivel.GetTexto(), nullptr);
        EXPECT_EQ(*traduzivel.GetTexto(), u"");
    }
    EBlocoTextoTrad errado(u"Motor", u"31", cena.Desenho().getOdDbObjectId(OdDbHandle("A3")));
    EXPECT_THROW(errado.SetTexto(u"x"), OdError_NotThatKindOfClass);
    EXPECT_EQ(cena.Bytes(), original);
}

TEST(ETraduzivel, AnEmptyTextAndOneBlankAreNoText) {
    EXPECT_EQ(ETextoTrad(u"", u"1").GetTexto(), nullptr);
    EXPECT_EQ(EFioXdataTrad(u" ", u"F", u"1").GetTexto(), nullptr);
    EXPECT_EQ(*ETextoTrad(u"  ", u"1").GetTexto(), u"  ");
}

TEST(ETraduzivel, KindsAreBitsAndAVirtualAttributesKeyHoldsItsName) {
    const EAtributoVirtualTrad traduzivel(u"Motor", u"2F", u"NOME_1", u"X");
    EXPECT_EQ(traduzivel.GetChave(), u"2F_NOME_1");
    std::vector<uint32_t> tipos;
    std::vector<std::string_view> nomes;
    for (const auto& lugar :
         {Um<EAtributoTrad>(u"x", u"1"), Um<EDefAtributoTrad>(u"T", u"P", u"x", u"1"),
          Um<ETextoTrad>(u"x", u"1"), Um<EFioXdataTrad>(u"x", u"F", u"1"),
          Um<EAtributoVirtualTrad>(u"x", u"1", u"N", u"Z")}) {
        tipos.push_back(lugar()->GetTipo());
        nomes.push_back(NomeTipo(tipos.back()));
    }
    EXPECT_THAT(tipos, testing::ElementsAre(1, 2, 4, 8, 32));
    EXPECT_THAT(nomes, testing::ElementsAre("attribute", "attribute-definition", "text", "wire",
                                            "virtual-attribute"));
    EXPECT_EQ(EBlocoTextoTrad(u"x", u"1", {}).GetTipo(), 16u);
    EXPECT_EQ(NomeTipo(16), "block-text");
}

}  // namespace
}  // namespace traducaoTQ
