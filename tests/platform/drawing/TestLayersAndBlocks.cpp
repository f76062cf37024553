// Layers, declared and used; blocks by record and by name; what stands in the model space.
#include <gtest/gtest.h>

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/drawing/DbText.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

std::u16string layerNames(OdDbDatabase& database) {
    std::u16string names;
    OdDbLayerTablePtr table = database.getLayerTableId().openObject();
    for (auto i = table->newIterator(); !i->done(); i->step()) {
        names += i->getRecord()->getName().text() + u" ";
    }
    return names;
}

// The texts of a block, in the order of its iterator.
std::u16string textsOf(const OdDbObjectId& block) {
    std::u16string texts;
    OdDbBlockTableRecordPtr record = block.openObject();
    for (auto i = record->newIterator(); !i->done(); i->step()) {
        if (auto text = OdDbText::cast(i->entity()); !text.isNull()) {
            texts += text->textString().text() + u" ";
        }
    }
    return texts;
}

std::string text(const std::string& layer, const std::string& value,
                 const std::string& more = "330 1F\n") {
    return "0 TEXT\n" + more + "8 " + layer + "\n40 2.5\n1 " + value + "\n";
}

TEST(Layers, AreTheDeclaredOnesThenTheUsedOnes) {
    const std::string declared =
        "0 LAYER\n5 11\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 PAG01\n70 0\n"
        "1001 AcAecLayerStandard\n1000 \n1000 Power feed\n";
    const std::string entities = text("zulu", "a") + text("pag01", "b") + text("Alpha", "c") +
                                 text("ZULU", "d") + text("PAG01", "e");
    OdDbDatabasePtr database = Open({.layers = declared, .entities = entities});
    EXPECT_EQ(layerNames(*database), u"0 PAG01 zulu Alpha ");

    OdDbLayerTablePtr table = database->getLayerTableId().openObject();
    OdDbLayerTableRecordPtr page = table->getAt(u"pag01").openObject();
    EXPECT_EQ(page->description(), u"Power feed");
    EXPECT_TRUE(page->isDeclared());
    OdDbLayerTableRecordPtr used = table->getAt(u"Zulu").openObject();
    EXPECT_FALSE(used->isDeclared());
    EXPECT_FALSE(used->getDbHandle().isNull());
    EXPECT_EQ(database->getOdDbObjectId(used->getDbHandle()), used->objectId());
    EXPECT_EQ(Raised([&] { used->upgradeOpen(), used->erase(); }), eNotApplicable);
    EXPECT_FALSE(database->isModified());
}

// The index must find what a walk that compares names finds.
TEST(Layers, IndexAgreesWithAWalk) {
    const std::string declared =
        "0 LAYER\n5 11\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 PAG01\n70 "
        "0\n";
    std::string entities;
    for (int i = 0; i < 60; ++i) {
        const char* layers[] = {"PAG01", "pag01", "other", "OTHER", "0"};
        entities += text(layers[i % 5], std::to_string(i), "5 " + std::to_string(100 + i) + "\n");
    }
    OdDbDatabasePtr database = Open({.layers = declared, .entities = entities});
    OdDbBlockTableRecordPtr model = database->getModelSpaceId().openObject();
    for (int round = 0; round < 2; ++round) {
        for (const char16_t* name : {u"PAG01", u"pag01", u"other", u"OTHER", u"0", u"none"}) {
            std::vector<OdDbObjectId> walked, found;
            for (auto i = model->newIterator(); !i->done(); i->step()) {
                if (i->entity()->layer() == name) walked.push_back(i->objectId());
            }
            model->getEntitiesOnLayer(name, found);
            EXPECT_EQ(found, walked);
        }
        for (const char16_t* handle : {u"105", u"106"}) {
            if (round == 0) At<OdDbText>(*database, handle, OdDb::kForWrite)->erase();
        }
    }
}

TEST(ModelSpace, IsToldByFlagOwnerOrLayout) {
    const std::string entities =
        text("0", "model") + text("0", "flag", "330 1F\n67 1\n") + text("0", "owner", "330 1B\n") +
        text("0", "nothing", "") + text("0", "layout", "410 Layout1\n") +
        text("0", "also", "410 Model\n") +
        "0 INSERT\n8 0\n2 NONE\n0 ATTRIB\n8 0\n1 part\n2 A\n0 SEQEND\n8 0\n" +
        "0 ATTRIB\n8 0\n1 stray\n2 A\n";
    OdDbDatabasePtr database = Open({.entities = entities});
    EXPECT_EQ(textsOf(database->getModelSpaceId()), u"model nothing also stray ");
    OdDbBlockTablePtr table = database->getBlockTableId().openObject();
    EXPECT_EQ(table->getModelSpaceId(), database->getModelSpaceId());
    EXPECT_EQ(textsOf(table->getAt(u"*PAPER_SPACE")), u"flag owner layout ");
}

const char* kBlockRecord =
    "0 BLOCK_RECORD\n5 20\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 SYM\n"
    "0 BLOCK_RECORD\n5 28\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 *U1\n";
const char* kBlock =
    "0 BLOCK\n5 21\n330 20\n8 0\n2 SYM\n70 2\n"
    "0 TEXT\n5 22\n330 20\n8 0\n40 2.5\n1 inside\n"
    "0 ATTDEF\n5 23\n330 20\n8 0\n40 2.5\n1 K1\n3 Name\n2 TAG\n70 0\n"
    "0 ENDBLK\n5 24\n330 20\n8 0\n";

TEST(Blocks, AreFoundByTheirReferences) {
    const std::string insert = "0 INSERT\n5 30\n8 0\n2 sym\n0 INSERT\n5 31\n8 0\n2 GONE\n";
    for (const char* version : {"AC1009", "AC1015", "AC1032"}) {
        OdDbDatabasePtr database = Open(
            {.version = version, .blocks = kBlock, .records = kBlockRecord, .entities = insert});
        const OdDbObjectId id = At<OdDbBlockReference>(*database, u"30")->blockTableRecord();
        OdDbBlockTableRecordPtr record = id.openObject();
        EXPECT_EQ(record->getName(), u"SYM");
        EXPECT_TRUE(record->hasAttributeDefinitions());
        EXPECT_FALSE(record->isAnonymous());
        EXPECT_FALSE(record->isLayout());
        EXPECT_EQ(textsOf(id), u"inside K1 ");
        EXPECT_TRUE(At<OdDbBlockReference>(*database, u"31")->blockTableRecord().isNull());
        EXPECT_TRUE(OdDbBlockTableRecordPtr(database->getModelSpaceId().openObject())->isLayout());
    }
}

TEST(Blocks, WithoutADefinitionAreEmpty) {
    OdDbDatabasePtr database = Open({.blocks = kBlock, .records = kBlockRecord});
    OdDbBlockTablePtr table = database->getBlockTableId().openObject();
    OdDbBlockTableRecordPtr anonymous = table->getAt(u"*U1").openObject();
    EXPECT_TRUE(anonymous->isAnonymous());
    EXPECT_TRUE(anonymous->newIterator()->done());
    EXPECT_FALSE(anonymous->hasAttributeDefinitions());
}

TEST(Blocks, OfOldDrawingsMayNameTheSpaces) {
    const std::string spaces =
        "0 BLOCK\n8 0\n2 $MODEL_SPACE\n70 0\n0 ENDBLK\n8 0\n"
        "0 BLOCK\n8 0\n2 $PAPER_SPACE\n70 0\n0 ENDBLK\n8 0\n";
    const std::string entities = text("0", "model", "") + text("0", "paper", "67 1\n");
    OdDbDatabasePtr database = Open({.version = "AC1009", .blocks = spaces, .entities = entities});
    EXPECT_EQ(textsOf(database->getModelSpaceId()), u"model ");
    OdDbBlockTablePtr table = database->getBlockTableId().openObject();
    EXPECT_EQ(textsOf(table->getAt(u"$paper_space")), u"paper ");
}

}  // namespace
