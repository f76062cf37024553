// Dictionaries in all formats and sizes, and the text objects in them.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbXrecord.h"
#include "platform/drawing/EObjString.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

OdDbDictionaryPtr root(OdDbDatabase& database) {
    return database.getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
}

EObjStringPtr stringOf(const OdString& text) {
    EObjStringPtr object = EObjString::createObject();
    object->setValue(text);
    return object;
}

std::u16string names(const OdDbDictionaryPtr& dictionary, OdRx::DictIterType type) {
    std::u16string all;
    for (auto i = dictionary->newIterator(type); !i->done(); i->next()) {
        all += i->name().text() + u" ";
    }
    return all;
}

TEST(Dictionaries, FindKeysWithoutCaseAndKeepTheirSpelling) {
    OdDbDatabasePtr database = Open({});
    OdDbDictionaryPtr dictionary = root(*database);
    dictionary->setAt(u"beta", stringOf(u"1"));
    dictionary->setAt(u"Alpha", stringOf(u"2"));
    const OdDbObjectId former = dictionary->getAt(u"BETA");
    dictionary->setAt(u"BETA", stringOf(u"3"));
    EXPECT_TRUE(former.isErased());
    EXPECT_EQ(dictionary->numEntries(), 2u);
    EXPECT_EQ(names(dictionary, OdRx::kDictCollated), u"beta Alpha ");
    EXPECT_EQ(names(dictionary, OdRx::kDictSorted), u"Alpha beta ");
    EObjStringPtr found = dictionary->getAt(u"beta", OdDb::kForRead);
    EXPECT_EQ(OdString(found->getValue()), u"3");
    EXPECT_EQ(dictionary->nameAt(dictionary->getAt(u"alpha")), u"Alpha");
    EXPECT_FALSE(dictionary->remove(u"alpha").isNull());
    EXPECT_TRUE(dictionary->remove(u"alpha").isNull());
    EXPECT_TRUE(dictionary->getAt(u"alpha", OdDb::kForRead).isNull());
}

// A long sequence of changes against a plain map, with the file in between.
TEST(Dictionaries, BehaveLikeAMapThroughSavesAndUndo) {
    std::mt19937 random(7);
    for (const bool binary : {false, true}) {
        const std::string lines = Lines({});
        OdDbDatabasePtr database = OpenBytes(binary ? Binary(lines) : Ascii(lines));
        std::map<std::u16string, std::u16string> model;
        for (int round = 0; round < 30; ++round) {
            const auto before = model;
            const std::string bytes = database->toBytes();
            database->startUndoRecord();
            for (int step = 0; step < 40; ++step) {
                const std::u16string key = OdString(std::to_string(random() % 150).c_str()).text();
                if (random() % 3 == 0) {
                    EXPECT_EQ(root(*database)->remove(key).isNull(), model.erase(key) == 0);
                } else {
                    model[key] = std::u16string(random() % 5, u'a' + random() % 26);
                    root(*database)->setAt(key, stringOf(model[key]));
                }
            }
            database->endUndoRecord();
            if (random() % 3 == 0) {
                database->undo();
                model = before;
                ASSERT_EQ(database->toBytes(), bytes);
            }
            if (random() % 3 == 0) database = Reopened(*database);
            ASSERT_EQ(root(*database)->numEntries(), model.size());
            for (const auto& [key, text] : model) {
                EObjStringPtr found = root(*database)->getAt(key, OdDb::kForRead);
                ASSERT_EQ(OdString(found->getValue()), OdString(text));
            }
        }
    }
}

TEST(Dictionaries, LeaveTheirOtherBytesAlone) {
    const std::string objects =
        "0 DICTIONARY\n5 C\n102 {ACAD_REACTORS\n330 0\n102 }\n330 0\n100 AcDbDictionary\n281 1\n"
        "3 FIRST\n350 00D0\n999 a comment\n3 SECOND\n350 D1\n1001 ACAD\n1000 kept\n"
        "0 DICTIONARY\n5 D0\n330 C\n100 AcDbDictionary\n280 1\n281 1\n"
        "0 DICTIONARY\n5 D1\n330 C\n100 AcDbDictionary\n281 1\n";
    OdDbDatabasePtr database = Open({.objects = objects});
    const std::string before(database->store().Original());
    root(*database)->setAt(u"THIRD", OdDbDictionary::createObject());
    const std::string after = database->toBytes();
    EXPECT_NE(after.find("3\nFIRST\n350\n00D0\n999\na comment\n  3\nSECOND\n350\nD1\n"
                         "  3\nTHIRD\n350\nFFF\n1001\nACAD\n"),
              std::string::npos)
        << after;
    EXPECT_NE(after.find("$HANDSEED\n  5\n1000\n"), std::string::npos);

    OdDbDictionaryPtr hard = root(*database)->getAt(u"first", OdDb::kForWrite);
    EXPECT_TRUE(hard->isTreatElementsAsHard());
    hard->setAt(u"X", stringOf(u"x"));
    EXPECT_NE(database->toBytes().find("  3\nX\n360\n"), std::string::npos);
}

TEST(Dictionaries, RemoveTheObjectsTheyOwnAndNoOthers) {
    OdDbDatabasePtr database = Open({});
    OdDbDictionaryPtr level1 = OdDbDictionary::createObject();
    const OdDbObjectId level1Id = root(*database)->setAt(u"LEVEL1", level1);
    const OdDbObjectId text = level1->setAt(u"T", stringOf(u"text"));
    EXPECT_EQ(Raised([&] { root(*database)->setAt(u"ELSEWHERE", text.openObject()); }),
              eInvalidInput);
    root(*database)->remove(u"level1");
    EXPECT_TRUE(level1Id.isErased());
    EXPECT_TRUE(text.isErased());
    EXPECT_EQ(database->toBytes(), database->store().Original());
}

TEST(Dictionaries, ForgetAnObjectThatIsErased) {
    OdDbDatabasePtr database = Open({});
    root(*database)->setAt(u"T", stringOf(u"text"));
    root(*database)->getAt(u"T", OdDb::kForWrite)->erase();
    EXPECT_EQ(root(*database)->numEntries(), 0u);
    EXPECT_EQ(database->toBytes(), database->store().Original());
}

TEST(Dictionaries, GetASectionWhereTheDrawingHasNone) {
    for (const bool binary : {false, true}) {
        const std::string lines = Lines({.entities = "0 LINE\n5 30\n8 0\n", .withObjects = false});
        OdDbDatabasePtr database = OpenBytes(binary ? Binary(lines) : Ascii(lines));
        EXPECT_EQ(root(*database)->numEntries(), 0u);
        EXPECT_FALSE(database->isModified());

        database->startUndoRecord();
        root(*database)->setAt(u"T", stringOf(u"text"));
        database->endUndoRecord();
        const std::string with = database->toBytes();
        database->undo();
        EXPECT_EQ(database->toBytes(), database->store().Original());
        EXPECT_EQ(root(*database)->numEntries(), 0u);
        database->redo();
        EXPECT_EQ(database->toBytes(), with);

        OdDbDatabasePtr again = OpenBytes(with);
        EXPECT_TRUE(root(*again)->ownerId().isNull());
        EXPECT_EQ(EObjStringPtr(root(*again)->getAt(u"T", OdDb::kForRead))->ownerId(),
                  root(*again)->objectId());
    }
}

// Readers take the first object of the section for the root dictionary.
TEST(Dictionaries, TheRootGoesAheadOfTheObjectsOfASection) {
    OdDbDatabasePtr database = Open({.objects = "0 LAYOUT\n5 D\n330 0\n"});
    root(*database)->setAt(u"T", stringOf(u"text"));
    const std::string bytes = database->toBytes();
    EXPECT_LT(bytes.find("DICTIONARY"), bytes.find("LAYOUT"));
    EXPECT_LT(bytes.find("LAYOUT"), bytes.find("XRECORD"));
}

TEST(Dictionaries, AreNotToBeHadInOldDrawings) {
    OdDbDatabasePtr database = Open({.version = "AC1009", .entities = "0 LINE\n8 0\n"});
    EXPECT_FALSE(database->hasDictionaries());
    EXPECT_TRUE(root(*database)->getAt(u"T", OdDb::kForRead).isNull());
    EXPECT_TRUE(root(*database)->newIterator(OdRx::kDictSorted)->done());
    EXPECT_EQ(Raised([&] { root(*database)->setAt(u"T", stringOf(u"text")); }), eNoDictionaries);
    EXPECT_EQ(database->toBytes(), database->store().Original());
}

// With a cost that grows with the number of entries this would run for hours.
TEST(Dictionaries, HoldManyEntries) {
    OdDbDatabasePtr database = Open({});
    const int count = 200000;
    for (int i = 0; i < count; ++i) {
        root(*database)->setAt(OdDbHandle(i).ascii(), OdDbDictionary::createObject());
    }
    OdDbDatabasePtr again = Reopened(*database);
    EXPECT_EQ(root(*again)->numEntries(), unsigned(count));
    for (int i = 0; i < count; i += 997) {
        EXPECT_FALSE(root(*again)->getAt(OdDbHandle(i).ascii()).isNull());
    }
}

TEST(Strings, ComeBackAsTheyWere) {
    const std::u16string texts[] = {
        u"", u" ", u"plain", u"a\nb\fc^\\P", u"\U0001F50C\u4E2D", std::u16string(3000, u'\u00FC')};
    for (const char* version : {"AC1012", "AC1015", "AC1032"}) {
        for (const std::u16string& text : texts) {
            OdDbDatabasePtr database = Open({.version = version});
            EObjStringPtr object = stringOf(text);
            root(*database)->setAt(u"S", object);
            EXPECT_EQ(OdString(object->getValue()), OdString(text));
            OdDbDatabasePtr again = Reopened(*database);
            EObjStringPtr read = root(*again)->getAt(u"S", OdDb::kForWrite);
            EXPECT_EQ(OdString(read->getValue()), OdString(text));
            read->setValue(u"other");
            EXPECT_EQ(OdString(read->getValue()), u"other");
        }
    }
}

TEST(Strings, WithNothingBehindTheirMarkTakeAText) {
    OdDbDatabasePtr database =
        Open({.objects = "0 DICTIONARY\n5 C\n330 0\n100 AcDbDictionary\n3 S\n350 D\n"
                         "0 XRECORD\n5 D\n330 C\n100 AcDbXrecord\n280 1\n1 EObjString\n"});
    EObjStringPtr(root(*database)->getAt(u"S", OdDb::kForWrite))->setValue(u"text");
    OdDbDatabasePtr again = Reopened(*database);
    const EObjStringPtr read = root(*again)->getAt(u"S", OdDb::kForRead);
    EXPECT_EQ(OdString(read->getValue()), u"text");
}

TEST(Strings, AreNoOtherXrecords) {
    OdDbDatabasePtr database = Open({});
    auto plain = OdDbXrecord::createObject();
    plain->setFromRbChain(OdResBuf::newRb(1, u"plain"));
    root(*database)->setAt(u"X", plain);
    EXPECT_TRUE(EObjString::cast(root(*Reopened(*database))->getAt(u"X", OdDb::kForRead)).isNull());
    EXPECT_EQ(Raised([&] { EObjStringPtr wrong = root(*database)->getAt(u"X", OdDb::kForRead); }),
              eNotThatKindOfClass);
}

}  // namespace
