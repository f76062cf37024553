// Ids and handles, views and their open modes, classes and casts, erasing.
#include <gtest/gtest.h>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/EdCommandStack.h"
#include "platform/drawing/StaticRxObject.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

const char* kEntities =
    "0 TEXT\n5 30\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1.0\n20 1.0\n40 2.5\n1 Motor\n"
    "0 LINE\n5 31\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n"
    "0 INSERT\n5 32\n330 1F\n8 0\n66 1\n2 SYM\n10 0.0\n20 0.0\n"
    "0 ATTRIB\n5 33\n330 32\n8 0\n40 2.5\n1 K1\n2 TAG\n70 0\n"
    "0 ATTRIB\n5 34\n330 32\n8 0\n40 2.5\n1 24V\n2 VOLT\n70 3\n"
    "0 SEQEND\n5 35\n330 32\n8 0\n";

OdDbDatabasePtr open() { return Open({.entities = kEntities}); }

struct HandleCase {
    const char16_t* given;
    uint64_t value;
    const char16_t* ascii;
};

TEST(Handles, ReadLeadingHexadecimalDigits) {
    const HandleCase cases[] = {{u"2F", 0x2F, u"2F"},
                                {u"002f", 0x2F, u"2F"},
                                {u"1A3_NAME", 0x1A3, u"1A3"},
                                {u"", 0, u"0"},
                                {u" 2F", 0, u"0"},
                                {u"xyz", 0, u"0"},
                                {u"FFFFFFFFFFFFFFFF", UINT64_MAX, u"FFFFFFFFFFFFFFFF"}};
    for (const HandleCase& c : cases) {
        OdDbHandle handle;
        handle = OdString(c.given);
        EXPECT_EQ(uint64_t(handle), c.value);
        EXPECT_EQ(handle.ascii(), c.ascii);
        char narrow[17];
        handle.getIntoAsciiBuffer(narrow);
        EXPECT_EQ(OdString(narrow), c.ascii);
    }
}

TEST(Ids, LeadToTheObjectAndBack) {
    OdDbDatabasePtr database = open();
    const OdDbObjectId id = database->getOdDbObjectId(OdDbHandle(u"30"));
    EXPECT_EQ(id.getHandle(), 0x30u);
    EXPECT_EQ(id.openObject()->objectId(), id);
    EXPECT_EQ(id.openObject()->ownerId(), database->getModelSpaceId());
    EXPECT_TRUE(database->getOdDbObjectId(OdDbHandle(u"999")).isNull());
    EXPECT_TRUE(OdDbObjectId::kNull.openObject().isNull());
    EXPECT_EQ(Raised([] { OdDbObjectId::kNull.safeOpenObject(); }), eNullObjectId);
    EXPECT_EQ(Raised([&] { database->getOdDbObjectId(OdDbHandle(u"999"), true); }), eNotApplicable);
}

TEST(Views, AreOnePerObjectWithTheWiderMode) {
    OdDbDatabasePtr database = open();
    const OdDbTextPtr reading = At<OdDbText>(*database, u"30");
    EXPECT_EQ(Raised([&] { reading->setTextString(u"Pump"); }), eNotOpenForWrite);
    EXPECT_EQ(Raised([&] { reading->erase(); }), eNotOpenForWrite);
    EXPECT_EQ(Raised([&] { reading->recordGraphicsModified(); }), eNotOpenForWrite);
    {
        const OdDbTextPtr writing = At<OdDbText>(*database, u"30", OdDb::kForWrite);
        EXPECT_EQ(writing.get(), reading.get());
        writing->setTextString(u"Pump");
    }
    EXPECT_TRUE(reading->isWriteEnabled());
    EXPECT_EQ(reading->textString(), u"Pump");
}

TEST(Views, OfAClosedDrawingSaySo) {
    OdDbDatabasePtr database = open();
    const OdDbTextPtr text = At<OdDbText>(*database, u"30", OdDb::kForWrite);
    database.release();
    EXPECT_EQ(Raised([&] { text->textString(); }), eNoDatabase);
    EXPECT_EQ(Raised([&] { text->setTextString(u"Pump"); }), eNoDatabase);
    EXPECT_TRUE(text->objectId().isNull());
}

TEST(Casts, RaiseWithHandleAndBothClassesOrGiveNull) {
    OdDbDatabasePtr database = open();
    OdDbObjectPtr line = At<OdDbObject>(*database, u"31");
    EXPECT_TRUE(OdDbText::cast(line).isNull());
    EXPECT_FALSE(OdDbEntity::cast(line).isNull());
    EXPECT_TRUE(OdDbText::cast(nullptr).isNull());
    try {
        OdDbBlockReferencePtr reference = line;
        FAIL() << "the cast must raise";
    } catch (const OdError_NotThatKindOfClass& error) {
        EXPECT_EQ(error.code(), eNotThatKindOfClass);
        EXPECT_EQ(error.description(),
                  u"object 31 (LINE, OdDbEntity) is not an OdDbBlockReference");
        EXPECT_EQ(error.toClass(), OdDbBlockReference::desc());
    }
    OdDbTextPtr nothing = OdDbObjectPtr();
    EXPECT_TRUE(nothing.isNull());
}

TEST(Casts, KnowTheClassTree) {
    OdDbDatabasePtr database = open();
    OdDbObjectPtr attribute = At<OdDbObject>(*database, u"33");
    EXPECT_TRUE(attribute->isKindOf(OdDbText::desc()));
    OdSmartPtr<OdDbAttribute> queried;
    queried.attach(static_cast<OdDbAttribute*>(attribute->queryX(OdDbAttribute::desc())));
    EXPECT_EQ(queried.get(), attribute.get());
    EXPECT_EQ(attribute->numRefs(), 2);
    EXPECT_EQ(attribute->queryX(OdDbDictionary::desc()), nullptr);
    EXPECT_FALSE(OdDbDictionary::desc()->create().isNull());
    EXPECT_TRUE(OdDbText::desc()->create().isNull());
}

TEST(Erasing, HidesTheObjectAndLeavesItOutOfTheFile) {
    OdDbDatabasePtr database = open();
    const OdDbObjectId id = database->getOdDbObjectId(OdDbHandle(u"31"));
    id.openObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.isValid());
    EXPECT_TRUE(id.openObject().isNull());
    EXPECT_EQ(Raised([&] { id.safeOpenObject(); }), eWasErased);
    EXPECT_TRUE(Reopened(*database)->getOdDbObjectId(OdDbHandle(u"31")).isNull());

    id.openObject(OdDb::kForWrite, true)->erase(false);
    EXPECT_EQ(database->toBytes(), database->store().Original());
}

TEST(Erasing, OfAReferenceTakesItsAttributes) {
    OdDbDatabasePtr database = open();
    At<OdDbBlockReference>(*database, u"32", OdDb::kForWrite)->erase();
    for (const char16_t* handle : {u"33", u"34", u"35"}) {
        EXPECT_TRUE(database->getOdDbObjectId(OdDbHandle(handle)).isErased());
    }
    EXPECT_EQ(Reopened(*database)->store().Count(), database->store().FileCount() - 4);
}

TEST(Erasing, OfTheLastAttributeTakesItsAnnouncement) {
    OdDbDatabasePtr database = open();
    const std::string before = database->toBytes();
    At<OdDbAttribute>(*database, u"33", OdDb::kForWrite)->erase();
    EXPECT_NE(database->toBytes().find("SEQEND"), std::string::npos);
    At<OdDbAttribute>(*database, u"34", OdDb::kForWrite)->erase();
    const std::string after = database->toBytes();
    EXPECT_EQ(after.find("SEQEND"), std::string::npos);
    EXPECT_EQ(after.find(" 66\n"), std::string::npos);
    EXPECT_TRUE(At<OdDbBlockReference>(*database, u"32")->attributeIterator()->done());
}

TEST(MemoryHandles, StandForMissingAndDoubleOnes) {
    OdDbDatabasePtr database = Open({.entities = "0 TEXT\n5 30\n8 0\n1 first\n"
                                                 "0 TEXT\n5 30\n8 0\n1 second\n"
                                                 "0 TEXT\n8 0\n1 third\n"});
    OdDbBlockTableRecordPtr model = database->getModelSpaceId().openObject();
    std::vector<std::pair<uint64_t, OdString>> found;
    for (auto i = model->newIterator(); !i->done(); i->step()) {
        OdDbTextPtr text = i->entity();
        found.emplace_back(text->getDbHandle(), text->textString());
        EXPECT_EQ(database->getOdDbObjectId(text->getDbHandle()), i->objectId());
    }
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].first, 0x30u);
    EXPECT_GT(found[1].first, 0x30u);
    EXPECT_GT(found[2].first, found[1].first);
    EXPECT_EQ(database->toBytes(), database->store().Original());

    OdDbDictionaryPtr root = database->getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
    const OdDbObjectId added = root->setAt(u"NEW", OdDbDictionary::createObject());
    for (const auto& [handle, text] : found) EXPECT_NE(added.getHandle(), handle);
}

struct Counting : OdEdCommandStackReactor {
    std::string seen;
    void commandWillStart(const OdString&, OdEdCommandContext*) override { seen += "s"; }
    void commandEnded(const OdString& name, OdEdCommandContext*) override {
        seen += "e" + name.narrowText();
    }
};

TEST(CommandStack, TellsReactorsOnceAndNotAfterRemoval) {
    OdStaticRxObject<Counting> first, second;
    OdEdCommandStackPtr stack = odedRegCmds();
    EXPECT_EQ(stack.get(), odedRegCmds().get());
    stack->addReactor(&first);
    stack->addReactor(&first);
    stack->addReactor(&second);
    stack->fireCommandWillStart(u"A", nullptr);
    stack->removeReactor(&second);
    stack->fireCommandEnded(u"A", nullptr);
    stack->removeReactor(&first);
    stack->fireCommandEnded(u"B", nullptr);
    EXPECT_EQ(first.seen, "seA");
    EXPECT_EQ(second.seen, "s");
}

}  // namespace
