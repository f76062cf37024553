// Undo and redo of whole commands.
#include <gtest/gtest.h>

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/EObjString.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

const char* kEntities =
    "0 TEXT\n5 30\n330 1F\n8 0\n40 2.5\n1 one\n0 TEXT\n5 31\n330 1F\n8 0\n40 2.5\n1 two\n";

void change(OdDbDatabase& database, const OdString& text) {
    At<OdDbText>(database, u"30", OdDb::kForWrite)->setTextString(text);
    OdDbTextPtr second = At<OdDbText>(database, u"31", OdDb::kForWrite);
    if (!second.isNull()) second->erase();
    OdResBufPtr data = OdResBuf::newRb(1001, OdString(u"APP_") + text);
    data->setNext(OdResBuf::newRb(1000, text));
    At<OdDbText>(database, u"30", OdDb::kForWrite)->setXData(data);
    OdDbDictionaryPtr root = database.getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
    EObjStringPtr record = EObjString::createObject();
    record->setValue(text);
    root->setAt(text, record);
}

TEST(Undo, GoesBackAndForthByteForByte) {
    for (const bool withObjects : {true, false}) {
        OdDbDatabasePtr database = Open({.entities = kEntities, .withObjects = withObjects});
        const OdDbTextPtr held = At<OdDbText>(*database, u"30");
        std::vector<std::string> states{database->toBytes()};
        for (const char16_t* text : {u"first", u"second", u"third"}) {
            database->startUndoRecord(text);
            change(*database, text);
            database->endUndoRecord();
            states.push_back(database->toBytes());
        }
        for (int back = 2; back >= 0; --back) {
            database->undo();
            EXPECT_EQ(database->toBytes(), states[back]);
        }
        EXPECT_FALSE(database->hasUndo());
        EXPECT_FALSE(database->isModified());
        EXPECT_EQ(held->textString(), u"one") << "a view held through it shows what stands now";
        EXPECT_EQ(database->redoName(), u"first");
        for (int forth = 1; forth <= 3; ++forth) {
            database->redo();
            EXPECT_EQ(database->toBytes(), states[forth]);
        }
        EXPECT_EQ(held->textString(), u"third");
    }
}

TEST(Undo, RecordsWithoutAChangeAreDropped) {
    OdDbDatabasePtr database = Open({.entities = kEntities});
    database->startUndoRecord(u"outer");
    database->startUndoRecord(u"inner");
    database->endUndoRecord();
    At<OdDbText>(*database, u"30", OdDb::kForWrite)->assertWriteEnabled();
    database->endUndoRecord();
    EXPECT_FALSE(database->hasUndo());
    EXPECT_EQ(Raised([&] { database->undo(); }), eNotApplicable);
    EXPECT_EQ(Raised([&] { database->endUndoRecord(); }), eNotApplicable);
}

TEST(Undo, ANewCommandEndsTheRedo) {
    OdDbDatabasePtr database = Open({.entities = kEntities});
    for (const char16_t* text : {u"first", u"second"}) {
        database->startUndoRecord(text);
        EXPECT_EQ(Raised([&] { database->undo(); }), eNotApplicable) << "within a command";
        At<OdDbText>(*database, u"30", OdDb::kForWrite)->setTextString(text);
        database->endUndoRecord();
        if (text == OdString(u"first")) database->undo();
    }
    EXPECT_FALSE(database->hasRedo());
    EXPECT_EQ(database->undoName(), u"second");
}

}  // namespace
