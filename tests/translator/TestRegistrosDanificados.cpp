// Translation records of a drawing that another program has damaged.
#include <gtest/gtest.h>

#include "tests/translator/Cena.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/engine/RegistrosTraducao.h"

namespace traducaoTQ {
namespace {

using namespace dxfDeTeste;

// The records of A1 name an object that is not there; those of A2 have gone as a whole.
std::string ProjetoComEntradasSemObjeto() {
    Desenho desenho;
    desenho.entidades = Texto("A1", "P", "Motor") + Texto("A2", "P", "Bomba");
    desenho.entradasDaRaiz = "3 VRN_TQ_OBJS_TRADS|350 D1";
    desenho.objetos =
        Grupos("0 DICTIONARY|5 D1|330 C|100 AcDbDictionary|281 1|3 A1|350 D2|3 A2|350 D9") +
        Grupos("0 DICTIONARY|5 D2|330 D1|100 AcDbDictionary|281 1|3 1|350 D8|3 2|350 D3") +
        Grupos("0 XRECORD|5 D3|330 D2|100 AcDbXrecord|280 1|1 EObjString|1 Engine");
    return desenho.Dxf();
}

TEST(RegistrosDanificados, AnEntryWithoutItsObjectIsNoRecordAndTheOthersStay) {
    Cena cena(ProjetoComEntradasSemObjeto());
    EXPECT_EQ(*ReadObjectRecords(u"A1"), (RegistrosObjeto{{u"2", u"Engine"}}));
    EXPECT_TRUE(ReadObjectRecords(u"A2")->empty());
}

TEST(RegistrosDanificados, AWriteMendsTheEntries) {
    std::string salvo;
    {
        Cena cena(ProjetoComEntradasSemObjeto());
        WriteObjectRecords(u"A1", {{u"1", u"Motor"}, {u"2", u"Engine"}});
        WriteObjectRecords(u"A2", {{u"1", u"Bomba"}});
        salvo = cena.Bytes();
    }
    Cena cena(salvo);
    EXPECT_EQ(*ReadObjectRecords(u"A1"), (RegistrosObjeto{{u"1", u"Motor"}, {u"2", u"Engine"}}));
    EXPECT_EQ(*ReadObjectRecords(u"A2"), (RegistrosObjeto{{u"1", u"Bomba"}}));
}

}  // namespace
}  // namespace traducaoTQ
