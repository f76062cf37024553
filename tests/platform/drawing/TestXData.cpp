// Extended data and xrecords: chains read, changed and written.
#include <gtest/gtest.h>

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/DbRegAppTable.h"
#include "platform/drawing/DbXDataIterator.h"
#include "platform/drawing/DbXrecord.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

const std::string kWire =
    "0 LWPOLYLINE\n5 30\n330 1F\n8 0\n100 AcDbPolyline\n90 2\n10 0.0\n20 0.0\n"
    "1001 OTHER\n1040 1.50000\n"
    "1001 WIRE\n1070 7\n1010 1.0\n1020 2.00\n1030 3.0\n1005 1F\n1000 N1^Lred\n1071 70000\n"
    "1001 LAST\n1000 kept\n";

OdDbDatabasePtr open() { return Open({.entities = kWire}); }

OdResBufPtr entry(OdResBufPtr chain, int number) {
    for (; number > 0; --number) chain = chain->next();
    return chain;
}

TEST(XData, IsReadByApplicationWithItsOwnEntryFirst) {
    OdDbDatabasePtr database = open();
    OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30");
    const OdResBufPtr chain = wire->xData(u"wire");
    EXPECT_EQ(chain->restype(), 1001);
    EXPECT_EQ(chain->getString(), u"WIRE");
    EXPECT_EQ(entry(chain, 1)->getInt16(), 7);
    EXPECT_EQ(entry(chain, 1)->getString(), u"") << "a number has no text";
    EXPECT_EQ(entry(chain, 2)->getPoint3d(), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(entry(chain, 3)->getHandle(), 0x1Fu);
    EXPECT_EQ(entry(chain, 4)->getString(), u"N1\fred");
    EXPECT_EQ(entry(chain, 5)->getInt32(), 70000);
    EXPECT_TRUE(entry(chain, 5)->next().isNull());
    EXPECT_TRUE(wire->xData(u"NOBODY").isNull());
    int all = 0;
    for (OdResBufPtr e = wire->xData(); !e.isNull(); e = e->next()) ++all;
    EXPECT_EQ(all, 10);
}

TEST(XData, IsWalkedAsTheChainTells) {
    OdDbDatabasePtr database = open();
    OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30");
    for (const char16_t* application : {u"wire", u"OTHER", u"LAST", u"", u"NOBODY"}) {
        OdResBufPtr expected = wire->xData(application);
        for (OdDbXDataIterator walk(*wire, application); !walk.done(); walk.next()) {
            ASSERT_FALSE(expected.isNull());
            EXPECT_EQ(walk.restype(), expected->restype());
            EXPECT_EQ(walk.getString(), expected->getString());
            expected = expected->next();
        }
        EXPECT_TRUE(expected.isNull());
    }
}

TEST(XData, AStringIsReplacedWhereItStands) {
    OdDbDatabasePtr database = open();
    OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30");
    const auto set = [&](int number, const OdString& text) {
        OdDbXDataIterator walk(*wire, u"WIRE");
        for (; number > 0; --number) walk.next();
        walk.setString(text);
        EXPECT_TRUE(walk.done());
    };
    EXPECT_EQ(Raised([&] { set(4, u"N1\fgreen"); }), eNotOpenForWrite);
    wire->upgradeOpen();
    EXPECT_EQ(Raised([&] { set(1, u"8"); }), eInvalidResBuf);
    EXPECT_EQ(Raised([&] { set(4, std::u16string(256, u'x')); }), eStringTooLong);
    EXPECT_FALSE(database->isModified());
    set(4, u"N1\fgreen");
    set(3, u"00a1");
    EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
              "-1F\n-1000\n-N1^Lred\n+A1\n+1000\n+N1^Lgreen\n");
    set(4, u"N1\fred");
    set(3, u"1F");
    EXPECT_FALSE(database->isModified());
}

TEST(XData, ChangesTheTouchedEntryAlone) {
    OdDbDatabasePtr database = open();
    OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30");
    OdResBufPtr chain = wire->xData(u"WIRE");
    EXPECT_EQ(Raised([&] { wire->setXData(chain); }), eNotOpenForWrite);
    wire->upgradeOpen();
    wire->setXData(chain);
    EXPECT_FALSE(database->isModified());
    entry(chain, 4)->setString(u"N1\fgreen");
    wire->setXData(chain);
    EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
              "-N1^Lred\n+N1^Lgreen\n");
}

TEST(XData, OfAnApplicationCanGoAndCome) {
    OdDbDatabasePtr database = open();
    OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30", OdDb::kForWrite);
    wire->setXData(OdResBuf::newRb(1001, u"WIRE"));
    EXPECT_TRUE(wire->xData(u"WIRE").isNull());
    EXPECT_FALSE(wire->xData(u"OTHER").isNull());

    OdResBufPtr chain = OdResBuf::newRb(1001, u"NEW_APP");
    chain->last()->setNext(OdResBuf::newRb(1000, u"text"));
    chain->last()->setNext(OdResBuf::newRb(1040, 2.5));
    chain->last()->setNext(OdResBuf::newRb(1010, OdGePoint3d{1, 2, 3}));
    chain->last()->setNext(OdResBuf::newRb(1005, OdDbHandle(0x1F)));
    wire->setXData(chain);
    OdDbDatabasePtr again = Reopened(*database);
    const OdResBufPtr read = At<OdDbPolyline>(*again, u"30")->xData(u"NEW_APP");
    EXPECT_EQ(entry(read, 1)->getString(), u"text");
    EXPECT_EQ(entry(read, 2)->getDouble(), 2.5);
    EXPECT_EQ(entry(read, 3)->getPoint3d(), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(entry(read, 4)->getHandle(), 0x1Fu);
}

TEST(XData, RegistersItsApplicationOnce) {
    const std::string line = "0 LINE\n5 30\n8 0\n10 0.0\n20 0.0\n";
    for (const char* version : {"AC1009", "AC1012", "AC1024"}) {
        OdDbDatabasePtr database = Open({.version = version, .entities = line});
        OdDbEntityPtr entity = At<OdDbEntity>(*database, u"30", OdDb::kForWrite);
        OdResBufPtr chain = OdResBuf::newRb(1001, u"NEW_APP");
        chain->setNext(OdResBuf::newRb(1000, u"text"));
        entity->setXData(chain);
        entity->setXData(chain);
        EXPECT_FALSE(database->newRegApp(u"new_app"));
        OdDbDatabasePtr again = Reopened(*database);
        OdDbRegAppTablePtr table = again->getRegAppTableId().openObject();
        std::u16string names;
        for (auto i = table->newIterator(); !i->done(); i->step()) {
            names += i->getRecord()->getName().text() + u" ";
        }
        EXPECT_EQ(names, u"ACAD NEW_APP ") << version;
    }
}

TEST(XData, GetsATableWhereTheDrawingHasNone) {
    OdDbDatabasePtr database =
        OpenBytes(Ascii("0 SECTION\n2 ENTITIES\n0 LINE\n5 30\n8 0\n0 ENDSEC\n0 EOF\n"));
    EXPECT_TRUE(database->newRegApp(u"NEW_APP"));
    OdDbDatabasePtr again = Reopened(*database);
    OdDbSymbolTablePtr table = again->getRegAppTableId().openObject();
    EXPECT_TRUE(table->has(u"NEW_APP"));
}

TEST(XData, RefusesWhatDoesNotFit) {
    const auto chainOf = [](int type, auto value) {
        OdResBufPtr chain = OdResBuf::newRb(1001, u"APP");
        chain->setNext(OdResBuf::newRb(type, value));
        return chain;
    };
    const auto bytesOf = [](size_t length) {
        OdResBufPtr chain = OdResBuf::newRb(1001, u"APP");
        chain->setNext(OdResBuf::newRb(1004));
        chain->next()->setBinaryChunk(std::string(length, 'x'));
        return chain;
    };
    const OdString longest(std::u16string(255, u'x'));
    const OdString tooLong(std::u16string(127, u'\u00FC') + u"xx");
    const struct {
        OdResBufPtr chain;
        OdResult result;
    } cases[] = {
        {chainOf(1000, longest), eOk},
        {chainOf(1000, tooLong), eStringTooLong},
        {chainOf(1000, 7), eInvalidResBuf},
        {chainOf(1040, OdString(u"x")), eInvalidResBuf},
        {chainOf(40, 1.0), eInvalidResBuf},
        {chainOf(1070, -32768), eOk},
        {chainOf(1070, 70000), eInvalidResBuf},
        {bytesOf(255), eOk},
        {bytesOf(256), eStringTooLong},
        {OdResBuf::newRb(1000, u"no application"), eInvalidResBuf},
        {OdResBufPtr(), eInvalidResBuf},
    };
    for (const auto& c : cases) {
        OdDbDatabasePtr database = open();
        OdDbPolylinePtr wire = At<OdDbPolyline>(*database, u"30", OdDb::kForWrite);
        EXPECT_EQ(Raised([&] { wire->setXData(c.chain); }), c.result);
        EXPECT_EQ(database->isModified(), c.result == eOk);
    }
}

TEST(XData, LongStringsOfTheFileAreKept) {
    const std::string longString(400, 'x');
    OdDbDatabasePtr database =
        Open({.entities = "0 LINE\n5 30\n8 0\n1001 ACAD\n1000 " + longString + "\n1070 1\n"});
    OdDbEntityPtr line = At<OdDbEntity>(*database, u"30", OdDb::kForWrite);
    OdResBufPtr chain = line->xData(u"ACAD");
    entry(chain, 2)->setInt16(2);
    line->setXData(chain);
    EXPECT_EQ(line->xData(u"ACAD")->next()->getString().getLength(), 400);
}

TEST(XData, OfOneDrawingCanGoIntoAnother) {
    OdDbDatabasePtr ascii = open();
    OdDbDatabasePtr binary = OpenBytes(Binary(Lines({.entities = "0 LINE\n5 30\n8 0\n"})));
    OdDbEntityPtr line = At<OdDbEntity>(*binary, u"30", OdDb::kForWrite);
    line->setXData(At<OdDbPolyline>(*ascii, u"30")->xData(u"WIRE"));
    OdDbDatabasePtr again = Reopened(*binary);
    const OdResBufPtr chain = At<OdDbEntity>(*again, u"30")->xData(u"WIRE");
    EXPECT_EQ(entry(chain, 1)->getInt16(), 7);
    EXPECT_EQ(entry(chain, 2)->getPoint3d(), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(entry(chain, 4)->getString(), u"N1\fred");
}

TEST(Xrecords, HoldChainsOfManyTypes) {
    OdDbDatabasePtr database = Open({});
    OdDbDictionaryPtr root = database->getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
    OdResBufPtr chain = OdResBuf::newRb(1, u"text");
    chain->last()->setNext(OdResBuf::newRb(70, 5));
    chain->last()->setNext(OdResBuf::newRb(10, OdGePoint3d{1, 2, 3}));
    chain->last()->setNext(OdResBuf::newRb(330, OdDbHandle(0x1F)));
    auto xrecord = OdDbXrecord::createObject();
    xrecord->setFromRbChain(chain);
    root->setAt(u"X", xrecord);

    OdDbDatabasePtr again = Reopened(*database);
    root = again->getNamedObjectsDictionaryId().openObject();
    OdDbXrecordPtr read = root->getAt(u"X", OdDb::kForWrite);
    EXPECT_EQ(read->rbChain()->getString(), u"text");
    EXPECT_EQ(entry(read->rbChain(), 2)->getPoint3d(), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(entry(read->rbChain(), 3)->getHandle(), 0x1Fu);
    const std::string before = again->toBytes();
    read->setFromRbChain(read->rbChain());
    EXPECT_EQ(again->toBytes(), before);
    EXPECT_EQ(Raised([&] { read->setFromRbChain(OdResBuf::newRb(5, u"1")); }), eInvalidResBuf);
}

}  // namespace
