// Attributes made from their definitions and put behind their references.
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <random>

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "tests/platform/drawing/DrawingBuilder.h"

namespace {

using namespace drawing_test;

std::string definition(const std::string& handle, const std::string& tag, const std::string& text,
                       const std::string& kind) {
    return "0 ATTDEF\n5 " + handle + "\n330 30\n100 AcDbEntity\n8 0\n62 5\n100 AcDbText\n" + text +
           "100 AcDbAttributeDefinition\n280 0\n3 Prompt\n2 " + tag + "\n" + kind;
}

// Left, centred, turned and leaning, of several lines.
const std::string kDefinitions =
    definition("33", "LEFT", "10 1.0\n20 2.0\n30 0.0\n40 2.5\n1 Motor\n", "70 0\n280 1\n") +
    definition("34", "MIDDLE",
               "10 1.0\n20 2.0\n30 0.0\n40 2.5\n1 Bomba\n72 1\n11 4.0\n21 3.0\n31 0.0\n",
               "70 0\n74 2\n280 1\n") +
    definition("35", "LEAN", "10 3.0\n20 -2.0\n30 0.0\n40 1.5\n1 x\n50 30.0\n41 0.8\n51 10.0\n",
               "70 8\n280 1\n") +
    definition("36", "LINES", "10 5.0\n20 5.0\n30 0.0\n40 1.0\n1 a\n11 5.0\n21 5.0\n31 0.0\n",
               "70 0\n280 1\n71 4\n72 0\n11 5.0\n21 5.0\n31 0.0\n101 Embedded Object\n10 5.0\n"
               "20 5.0\n30 0.0\n40 1.0\n41 20.0\n71 1\n72 5\n1 a\n73 1\n44 1.0\n");

Parts withReferences(const std::string& references, const std::string& version = "AC1032") {
    Parts parts;
    parts.version = version;
    parts.records =
        "0 BLOCK_RECORD\n5 30\n330 1\n100 AcDbSymbolTableRecord\n"
        "100 AcDbBlockTableRecord\n2 B\n70 0\n280 1\n281 0\n";
    parts.blocks =
        "0 BLOCK\n5 31\n330 30\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 B\n70 2\n"
        "10 1.0\n20 1.0\n30 0.0\n3 B\n1 \n" +
        kDefinitions + "0 ENDBLK\n5 32\n330 30\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
    parts.entities = references;
    return parts;
}

std::string reference(int handle, const std::string& groups) {
    return "0 INSERT\n5 " + OdDbHandle(handle).ascii().narrowText() +
           "\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 B\n" + groups;
}

void makeAttributes(const OdDbBlockReferencePtr& reference) {
    const OdDbBlockTableRecordPtr block = reference->blockTableRecord().openObject();
    for (auto walk = block->newIterator(); !walk->done(); walk->step()) {
        const auto definition = OdDbAttributeDefinition::cast(walk->entity());
        if (definition.isNull()) continue;
        OdDbAttributePtr attribute = OdDbAttribute::createObject();
        attribute->setPropertiesFrom(definition);
        if (definition->isMTextAttributeDefinition()) {
            attribute->setMTextAttribute(
                OdDbMTextPtr(definition->getMTextAttributeDefinition()->clone()));
        }
        attribute->setAttributeFromBlock(definition, reference->blockTransform());
        reference->appendAttribute(attribute);
    }
}

// Any place, turn and size, mirrored and turned over, also of different scales.
TEST(NewAttributes, StandWhereTheirDefinitionStandsSeenThroughTheReference) {
    std::mt19937 random(7);
    std::uniform_real_distribution<> number(-50, 50), angle(0, 360), scale(0.2, 5);
    std::string references;
    constexpr int kCount = 60;
    for (int i = 0; i < kCount; ++i) {
        const double x = scale(random) * (i % 2 ? 1 : -1), y = i % 3 ? std::abs(x) : scale(random);
        std::string normal;
        if (i % 4 == 0) normal = "210 0.0\n220 0.0\n230 -1.0\n";
        if (i % 4 == 1) normal = "210 0.6\n220 0.0\n230 0.8\n";
        references += reference(0x400 + i, "10 " + std::to_string(number(random)) + "\n20 " +
                                               std::to_string(number(random)) + "\n30 1.0\n41 " +
                                               std::to_string(x) + "\n42 " + std::to_string(y) +
                                               "\n43 " + std::to_string(std::abs(x)) + "\n50 " +
                                               std::to_string(angle(random)) + "\n" + normal);
    }
    const OdDbDatabasePtr made = Open(withReferences(references));
    for (int i = 0; i < kCount; ++i) {
        makeAttributes(made->getOdDbObjectId(OdDbHandle(0x400 + i)).openObject(OdDb::kForWrite));
    }
    const std::string path = testing::TempDir() + "attributes" + std::to_string(getpid()) + ".dxf";
    made->writeFile(path, true);
    EXPECT_EQ(
        OutputOf("/usr/bin/python3 " KV_SOURCE_DIR "/tests/tools/check_blocks.py attributes " +
                 path),
        "");
    std::remove(path.c_str());
}

TEST(NewAttributes, TheFirstAnnouncesThemTheLastErasedTakesThatBack) {
    const OdDbDatabasePtr drawing =
        Open(withReferences(reference(0x400, "10 0.0\n20 0.0\n30 0.0\n")));
    const std::string before = drawing->toBytes();
    const auto insert = At<OdDbBlockReference>(*drawing, u"400", OdDb::kForWrite);
    const auto attributes = [&] {
        std::vector<OdDbAttributePtr> found;
        for (auto walk = insert->attributeIterator(); !walk->done(); walk->step()) {
            found.push_back(walk->entity(OdDb::kForWrite));
        }
        return found;
    };
    for (int round = 0; round < 2; ++round) {
        drawing->startUndoRecord();
        makeAttributes(insert);
        ASSERT_EQ(attributes().size(), 4u);
        EXPECT_EQ(attributes()[1]->textString(), u"Bomba");
        EXPECT_EQ(attributes()[1]->ownerId(), insert->objectId());
        EXPECT_TRUE(attributes()[3]->isMTextAttribute());
        EXPECT_NE(drawing->toBytes().find(Ascii("66      1\n2 B\n")), std::string::npos);
        attributes()[3]->setTextString(u"two\nlines");
        drawing->endUndoRecord();
        const OdDbDatabasePtr again = Reopened(*drawing);
        EXPECT_FALSE(again->isReadOnly());
        for (const OdDbAttributePtr& attribute : attributes()) attribute->erase();
        EXPECT_EQ(drawing->toBytes().find("SEQEND"), std::string::npos);
        EXPECT_EQ(drawing->toBytes().find(Ascii("66      1\n")), std::string::npos);
        drawing->startUndoRecord();
        makeAttributes(insert);
        drawing->endUndoRecord();
        EXPECT_EQ(attributes().size(), 4u);
        for (const OdDbAttributePtr& attribute : attributes()) attribute->erase();
    }
}

TEST(NewAttributes, PropertiesAreForNewOnesAndTextsHaveALimit) {
    const OdDbDatabasePtr drawing =
        Open(withReferences(reference(0x400, "10 0.0\n20 0.0\n30 0.0\n")));
    const auto insert = At<OdDbBlockReference>(*drawing, u"400", OdDb::kForWrite);
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(u"FREE");
    attribute->setHeight(3);
    attribute->setTextString(OdString(std::u16string(3000, u'x')));
    EXPECT_EQ(Raised([&] { insert->appendAttribute(attribute); }), eStringTooLong);
    EXPECT_FALSE(drawing->isModified());
    attribute->setTextString(u"y");
    attribute->setInvisible(true);
    insert->appendAttribute(attribute);
    EXPECT_EQ(attribute->tag(), u"FREE");
    EXPECT_TRUE(attribute->isInvisible());
    EXPECT_EQ(attribute->height(), 3);
    EXPECT_EQ(Raised([&] { attribute->setHeight(4); }), eNotApplicable);
}

TEST(NewAttributes, OldDrawingsGetThemInTheirOwnForm) {
    Parts parts;
    parts.version = "AC1009";
    parts.blocks =
        "0 BLOCK\n8 0\n2 B\n70 2\n10 0.0\n20 0.0\n30 0.0\n"
        "0 ATTDEF\n8 0\n10 1.0\n20 2.0\n30 0.0\n40 1.0\n1 v\n3 P\n2 T\n70 0\n0 ENDBLK\n8 0\n";
    parts.entities = "0 INSERT\n8 0\n2 B\n10 10.0\n20 0.0\n30 0.0\n";
    const OdDbDatabasePtr drawing = Open(parts);
    const OdDbBlockTablePtr blocks = drawing->getBlockTableId().openObject();
    const OdDbBlockTableRecordPtr block = blocks->getAt(u"B").openObject();
    OdDbObjectIdArray references;
    block->getBlockReferenceIds(references);
    ASSERT_EQ(references.length(), 1u);
    makeAttributes(references[0].openObject(OdDb::kForWrite));
    EXPECT_NE(drawing->toBytes().find(Ascii(
                  "0 INSERT\n8 0\n66      1\n2 B\n10 10.0\n20 0.0\n30 0.0\n0 ATTRIB\n8 0\n10 11.0\n"
                  "20 2.0\n30 0.0\n40 1.0\n1 v\n2 T\n70      0\n0 SEQEND\n8 0\n")),
              std::string::npos)
        << drawing->toBytes();
}

}  // namespace
