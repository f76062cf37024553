// The roads to the host, and the helpers around the active drawing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "platform/drawing/DbLayerTable.h"
#include "tests/support/ScriptedServices.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/cad/Guarded.h"

namespace {

using testing::ElementsAre;
using tq::CICad;

CMxValueNode Node(int16_t type, const char16_t* text = nullptr) {
    CMxValueNode node;
    node.type = type;
    node.value.string = text;
    return node;
}

// Two declared layers, one line on a third; handles 10 (layer) and 20 (line).
OdDbDatabasePtr Drawing() {
    return OdDbDatabase::fromStore(dxf::Store::Parse(
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n0\nENDSEC\n"
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n70\n2\n"
        "0\nLAYER\n5\n10\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\nP2\n70\n0\n"
        "0\nLAYER\n5\n11\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\nP1\n70\n0\n"
        "0\nENDTAB\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n20\n100\nAcDbEntity\n8\nQ\n100\nAcDbLine\n"
        "10\n0.0\n20\n0.0\n11\n1.0\n21\n0.0\n0\nENDSEC\n0\nEOF\n"));
}

TEST(CICad, DoesNothingWithoutADocument) {
    ScriptedServices services;
    EXPECT_TRUE(CICad().ExecutaFuncaoCad(u"(f)"));
    EXPECT_EQ(CICad().GetVarStr(u"v", u"default", nullptr), u"default");
    EXPECT_TRUE(CICad().GetVarLstStr(u"v", nullptr).empty());
    EXPECT_EQ(CICad().Regen(), 2);
    EXPECT_EQ(CurrentDatabase(), nullptr);
    EXPECT_TRUE(IsNullId(IdFromHandle(OdDbHandle(0x10))));
    ScriptedDocument& document = services.AddDocument();
    document.hasLisp = false;
    EXPECT_TRUE(CICad().ExecutaFuncaoCad(u"(f)"));
    EXPECT_EQ(CICad().GetVarStr(u"v", u"default", &document), u"default");
    EXPECT_EQ(CurrentDatabase(), nullptr);
}

TEST(CICad, WrapsExpressionsAndRedraws) {
    ScriptedServices services;
    ScriptedDocument& document = services.AddDocument();
    EXPECT_TRUE(CICad().ExecutaFuncaoCad(u"(atualizarpaginas) "));
    EXPECT_THAT(document.lisp.evaluated, ElementsAre("(progn (atualizarpaginas)  (princ))"));
    EXPECT_EQ(CICad().Regen(), 0);
    EXPECT_EQ(document.redraws, 1);
}

TEST(CICad, ReadsVariables) {
    ScriptedServices services;
    ScriptedDocument& document = services.AddDocument();
    document.lisp.rawVariables["text"] = {Node(kLispString, u"rede\\é")};
    document.lisp.rawVariables["number"] = {Node(kLispInteger)};
    document.lisp.rawVariables["list"] = {Node(kLispString, u"P1"), Node(kLispInteger),
                                          Node(kLispListBegin), Node(kLispString, u"P2")};
    CICad cad;
    EXPECT_EQ(cad.GetVarStr(u"text", u"default", &document), u"rede\\é");
    EXPECT_EQ(cad.GetVarStr(u"number", u"default", &document), u"");
    EXPECT_EQ(cad.GetVarStr(u"list", u"default", &document), u"P1");
    EXPECT_EQ(document.lisp.released, 3);
    EXPECT_EQ(cad.GetVarStr(u"unset", u"default", &document), u"default");
    EXPECT_THAT(cad.GetVarLstStr(u"list", &document), ElementsAre(u"P1", u"P2"));
    EXPECT_THAT(cad.GetVarLstStr(u"text", &document), ElementsAre(u"rede\\é"));
    EXPECT_TRUE(cad.GetVarLstStr(u"unset", &document).empty());
    EXPECT_EQ(document.lisp.released, 3);  // lists are not given back, which is meant
}

TEST(CICad, AFailureInTheHostIsLoggedUnderTheOperationsName) {
    struct Failing : ScriptedDocument {
        CMxLispEngine* GetLispEngine() override { throw std::runtime_error("busy"); }
    } document;
    ScriptedServices services;
    services.active = &document;
    EXPECT_THROW(CICad().ExecutaFuncaoCad(u"(f)"), std::runtime_error);
    EXPECT_THROW(CICad().GetVarStr(u"v", u"default", &document), std::runtime_error);
    EXPECT_THROW(CICad().GetVarLstStr(u"v", &document), std::runtime_error);
    EXPECT_THAT(services.log,
                ElementsAre("tq::CICad::ExecutaFuncaoCad : busy", "tq::CICad::GetVarStr : busy",
                            "tq::CICad::GetVarLstStr : busy"));
}

TEST(CICad, ListsLayersInTableOrder) {
    ScriptedServices services;
    OdDbDatabasePtr drawing = Drawing();
    services.AddDocument(drawing);
    EXPECT_THAT(CICad().GetLayers(CurrentDatabase()), ElementsAre(u"P2", u"P1", u"Q"));
    SafeOpen(IdFromHandle(OdDbHandle(0x11)), OdDb::kForWrite)->erase();
    EXPECT_THAT(CICad().GetLayers(CurrentDatabase()), ElementsAre(u"P2", u"Q"));
}

TEST(DrawingHelpers, FindAndOpenObjects) {
    ScriptedServices services;
    services.AddDocument(Drawing());
    OdDbObjectId id = IdFromHandle(OdDbHandle(0x20));
    ASSERT_TRUE(IsValidId(id));
    EXPECT_EQ(HandleText(id), u"20");
    EXPECT_EQ(HandleOfId(id), OdDbHandle(0x20));
    EXPECT_TRUE(IsNullId(IdFromHandle(OdDbHandle(0xFFF))));
    EXPECT_TRUE(SafeOpen(OdDbObjectId()).isNull());
    SafeOpen(id, OdDb::kForWrite)->erase();
    EXPECT_TRUE(IsValidId(id));
    EXPECT_TRUE(SafeOpen(id).isNull());
    EXPECT_FALSE(SafeOpen(id, OdDb::kForRead, true).isNull());
}

TEST(Guarded, LogsAndThrowsTheSameException) {
    ScriptedServices services;
    EXPECT_EQ(Guarded(u"op", [] { return 7; }), 7);
    EXPECT_THROW(Guarded(u"op", [] { throw OdError_InvalidIndex(); }), OdError_InvalidIndex);
    EXPECT_THROW(Guarded(u"op", [] { throw OdError(OdString(u"é falso")); }), OdError);
    EXPECT_THROW(Guarded(u"op", [] { throw std::out_of_range("far"); }), std::out_of_range);
    EXPECT_THROW(GuardedOdError(u"op", [] { throw OdError(OdString(u"x")); }), OdError);
    EXPECT_THROW(GuardedOdError(u"op", [] { throw std::out_of_range("far"); }), std::out_of_range);
    ASSERT_EQ(services.log.size(), 4u);
    services.log.erase(services.log.begin());
    EXPECT_THAT(services.log, ElementsAre("op : é falso", "op : far", "op : x"));
}

}  // namespace
