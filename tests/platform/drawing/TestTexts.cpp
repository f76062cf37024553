// Texts read and written: formats, versions, limits, chunks, attributes.
#include <gtest/gtest.h>

#include <random>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbAttributeDefinition.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbMText.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

std::string textEntity(const std::string& groups) {
    return "0 TEXT\n5 30\n330 1F\n8 0\n100 AcDbText\n10 1.00\n40 2.5\n" + groups;
}

struct TextCase {
    const char* version;
    const char* raw;
    const char16_t* text;
    const char16_t* written;
    const char* newRaw;
};

TEST(Text, IsDecodedAndEncodedByTheDrawing) {
    const TextCase cases[] = {
        {"AC1024", "Motor", u"Motor", u"Pump", "Pump"},
        {"AC1024", "  padded  ", u"  padded  ", u" x ", " x "},
        {"AC1024", "Leist\xC3\xBCng", u"Leist\u00FCng", u"\u00FC\u4E2D", "\xC3\xBC\xE4\xB8\xAD"},
        {"AC1015", "Leist\xFCng", u"Leist\u00FCng", u"\u00FC\u4E2D", "\xFC\\U+4E2D"},
        {"AC1015", "\\U+4E2D", u"\u4E2D", u"", ""},
        {"AC1024", "a^Lb^ c", u"a\fb^c", u"a\nb\fc^", "a^Jb^Lc^ "},
    };
    for (const TextCase& c : cases) {
        OdDbDatabasePtr database =
            Open({.version = c.version, .entities = textEntity(std::string("1 ") + c.raw + "\n")});
        OdDbTextPtr text = At<OdDbText>(*database, u"30", OdDb::kForWrite);
        EXPECT_EQ(text->textString(), c.text);
        text->setTextString(c.written);
        EXPECT_EQ(text->textString(), c.written);
        EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
                  std::string("-") + c.raw + "\n+" + c.newRaw + "\n");
    }
}

TEST(Text, ThatStandsThereAlreadyIsNotWritten) {
    OdDbDatabasePtr database = Open({.version = "AC1015", .entities = textEntity("1 \\U+0041\n")});
    At<OdDbText>(*database, u"30", OdDb::kForWrite)->setTextString(u"A");
    EXPECT_FALSE(database->isModified());
}

TEST(Text, IsNotWhatApplicationsKeepUnderItsCode) {
    for (const char* type : {"TEXT", "MTEXT"}) {
        OdDbDatabasePtr database =
            Open({.entities = std::string("0 ") + type +
                              "\n5 30\n102 {APP\n1 theirs\n8 theirs\n40 1.0\n102 }\n"
                              "330 1F\n8 P\n40 2.5\n1 ours\n"});
        OdDbEntityPtr entity = At<OdDbEntity>(*database, u"30", OdDb::kForWrite);
        EXPECT_EQ(entity->layer(), u"P");
        if (const OdDbTextPtr text = OdDbText::cast(entity); !text.isNull()) {
            text->setTextString(u"new");
        } else {
            OdDbMTextPtr(entity)->setContents(u"new");
        }
        EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
                  "-ours\n+new\n");
    }
}

TEST(Text, WithoutItsGroupGetsOne) {
    OdDbDatabasePtr database = Open({.entities = textEntity("50 0.0\n1001 ACAD\n1000 x\n")});
    OdDbTextPtr text = At<OdDbText>(*database, u"30", OdDb::kForWrite);
    EXPECT_EQ(text->textString(), u"");
    text->setTextString(u"Pump");
    EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
              "+  1\n+Pump\n");
}

TEST(Text, KeepsTheWritingOfItsNeighbourhood) {
    const std::string lines = Lines({.entities = textEntity("1 Motor\n")});
    const struct {
        std::string bytes, expected;
    } cases[] = {{Ascii(lines, "\r\n"), "  1\r\nPump\r\n"},
                 {Ascii(lines, "\r"), "  1\rPump\r"},
                 {Binary(lines), std::string("\1\0Pump\0", 7)}};
    for (const auto& c : cases) {
        OdDbDatabasePtr database = OpenBytes(c.bytes);
        At<OdDbText>(*database, u"30", OdDb::kForWrite)->setTextString(u"Pump");
        const std::string after = database->toBytes();
        EXPECT_NE(after.find(c.expected), std::string::npos);
        EXPECT_EQ(after.size(), c.bytes.size() - 1);
        EXPECT_EQ(At<OdDbText>(*OpenBytes(after), u"30")->textString(), u"Pump");
    }
}

struct LimitCase {
    const char* version;
    size_t limit;
};

TEST(Text, LongerThanTheFormatTakesIsRefused) {
    for (const LimitCase& c : {LimitCase{"AC1012", 255}, {"AC1014", 255}, {"AC1015", 2049}}) {
        OdDbDatabasePtr database =
            Open({.version = c.version, .entities = textEntity("1 Motor\n")});
        OdDbTextPtr text = At<OdDbText>(*database, u"30", OdDb::kForWrite);
        text->setTextString(std::u16string(c.limit, u'x'));
        const std::string before = database->toBytes();
        try {
            text->setTextString(std::u16string(c.limit - 1, u'x') + u'\n');  // two bytes: ^J
            FAIL() << "must be refused";
        } catch (const OdError& error) {
            EXPECT_EQ(error.code(), eStringTooLong);
            const std::string line = error.description().narrowText();
            EXPECT_NE(line.find("30"), std::string::npos) << line;
            EXPECT_NE(line.find(std::to_string(c.limit + 1)), std::string::npos) << line;
        }
        EXPECT_EQ(database->toBytes(), before);
    }
}

std::string mtext(const std::string& groups) {
    return "0 MTEXT\n5 30\n330 1F\n8 0\n100 AcDbMText\n10 1.0\n40 2.5\n41 10.0\n" + groups +
           "7 STANDARD\n";
}

TEST(MText, JoinsItsChunksBeforeDecoding) {
    OdDbDatabasePtr database =
        Open({.entities = mtext("3 Leist\xC3\n3 \xBCng\\U+4E\n1 2D{\\C1;x}\n")});
    EXPECT_EQ(At<OdDbMText>(*database, u"30")->contents(), u"Leist\u00FCng\u4E2D{\\C1;x}");
}

// A raw line feed is no line end in a binary file, and some have it.
TEST(MText, ThatStandsThereAlreadyIsNotWritten) {
    std::string bytes = Binary(Lines({.entities = mtext("1 one#two\n")}));
    bytes[bytes.find('#')] = '\n';
    OdDbDatabasePtr database = OpenBytes(bytes);
    At<OdDbMText>(*database, u"30", OdDb::kForWrite)->setContents(u"one\ntwo");
    EXPECT_FALSE(database->isModified());
}

TEST(MText, ReplacesAllOfItsChunks) {
    OdDbDatabasePtr database = Open({.entities = mtext("3 one\n3 two\n1 three\n")});
    OdDbMTextPtr text = At<OdDbMText>(*database, u"30", OdDb::kForWrite);
    text->setContents(u"a\nb");
    EXPECT_EQ(text->contents(), u"a\\Pb");
    EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
              "-  3\n-one\n-  3\n-two\n-  1\n-three\n+  1\n+a\\Pb\n");
}

TEST(MText, OneGroupThatStaysOneGetsAnotherValue) {
    const std::string longest(250, 'a');
    const struct {
        const char* groups;
        std::string text, difference;
    } cases[] = {
        {"1 old\n", "", "-old\n+\n"},
        {"1 old\n", longest, "-old\n+" + longest + "\n"},
        {"1 old\n", longest + "b", "-  1\n-old\n+  3\n+" + longest + "\n+  1\n+b\n"},
        {"3 old\n", "new", "-  3\n-old\n+  1\n+new\n"},
        {"1 old\n3 more\n", "new", "-old\n-  3\n-more\n+new\n"},
    };
    for (const auto& [groups, text, difference] : cases) {
        SCOPED_TRACE(groups + text);
        OdDbDatabasePtr database = Open({.entities = mtext(groups)});
        const std::string before = database->toBytes();
        OdDbMTextPtr mtext = At<OdDbMText>(*database, u"30", OdDb::kForWrite);
        mtext->setContents(u"between");
        mtext->setContents(OdString(text.c_str()));
        EXPECT_EQ(mtext->contents(), OdString(text.c_str()));
        EXPECT_EQ(Difference(before, database->toBytes()), difference);
    }
}

// Pieces of random text must read back as it was, with no piece too long and none that ends inside
// a character or an escape.
TEST(MText, ChunksSplitNothing) {
    const std::u16string pool[] = {u"a",
                                   u"\u00FC",
                                   u"\u4E2D",
                                   u"\U0001F50C",
                                   u"\\P",
                                   u"^",
                                   u"\\U+0041",
                                   u"\\\\U+0041",
                                   u"\\M+18141",
                                   std::u16string(1, 0xDC81),
                                   u"\f",
                                   u"\\",
                                   std::u16string(1, 0xD83D)};
    std::mt19937 random(20240501);
    // A byte 81 begins a character in the double-byte page.
    for (const char* version : {"AC1015", "AC1015\n9 $DWGCODEPAGE\n3 ANSI_932", "AC1024"}) {
        for (int round = 0; round < 60; ++round) {
            std::u16string contents;
            const size_t length = random() % 900;
            while (contents.size() < length) contents += pool[random() % std::size(pool)];
            OdDbDatabasePtr database = Open({.version = version, .entities = mtext("1 x\n")});
            At<OdDbMText>(*database, u"30", OdDb::kForWrite)->setContents(contents);
            OdDbDatabasePtr again = Reopened(*database);
            ASSERT_EQ(At<OdDbMText>(*again, u"30")->contents().text(), contents);

            const dxf::Store& store = again->store();
            auto reader = store.Groups(store.FindHandle(0x30));
            std::u16string joined;
            for (dxf::Group group; reader.Next(group);) {
                if (group.code != 1 && group.code != 3) continue;
                ASSERT_LE(group.value.size(), 250u);
                joined += store.Codec().Decode(group.value);
            }
            ASSERT_EQ(joined, contents);
        }
    }
}

const char* kEmbedded =
    "0 INSERT\n5 32\n330 1F\n8 0\n66 1\n2 SYM\n"
    "0 ATTRIB\n5 33\n330 32\n8 0\n40 2.5\n1 old\n100 AcDbAttribute\n2 TAG\n70 1\n"
    "101 Embedded Object\n70 1\n10 0.0\n40 2.5\n3 ol\n1 d\n7 STANDARD\n"
    "1001 ACAD\n1000 kept\n"
    "0 SEQEND\n5 35\n330 32\n8 0\n";

TEST(Attributes, WithAnEmbeddedTextChangeBoth) {
    OdDbDatabasePtr database = Open({.version = "AC1032", .entities = kEmbedded});
    OdDbAttributePtr attribute = At<OdDbAttribute>(*database, u"33", OdDb::kForWrite);
    EXPECT_TRUE(attribute->isMTextAttribute());
    EXPECT_EQ(attribute->textString(), u"old");
    attribute->setTextString(u"new\nline");
    EXPECT_EQ(attribute->textString(), u"new\nline");
    EXPECT_NE(database->toBytes().find("new^Jline"), std::string::npos);
    EXPECT_NE(database->toBytes().find("  1\nnew\\Pline\n  7\nSTANDARD\n1001\n"),
              std::string::npos);
    EXPECT_EQ(attribute->tag(), u"TAG");
    EXPECT_EQ(attribute->xData(u"ACAD")->next()->getString(), u"kept");
}

TEST(Attributes, HaveFlagsThatChangeAlone) {
    OdDbDatabasePtr database = Open({.version = "AC1032", .entities = kEmbedded});
    OdDbAttributePtr attribute = At<OdDbAttribute>(*database, u"33", OdDb::kForWrite);
    EXPECT_TRUE(attribute->isInvisible());
    EXPECT_FALSE(attribute->isConstant());
    attribute->setInvisible(false);
    EXPECT_FALSE(attribute->isInvisible());
    EXPECT_EQ(Difference(std::string(database->store().Original()), database->toBytes()),
              "-1\n+     0\n");
}

TEST(Attributes, AreFoundByTheirRun) {
    const std::string attributes =
        "0 ATTRIB\n5 41\n330 1F\n8 0\n1 a\n2 A\n0 ATTRIB\n5 42\n8 0\n1 b\n2 B\n";
    const std::string line = "0 LINE\n5 50\n8 0\n";
    const std::string seqend = "0 SEQEND\n5 49\n8 0\n";
    const std::string insert = "0 INSERT\n5 40\n8 0\n2 SYM\n";
    for (const std::string& entities :
         {insert + attributes + seqend + line, insert + attributes + line, insert + attributes}) {
        OdDbDatabasePtr database = Open({.entities = entities});
        std::u16string tags;
        auto attribute = At<OdDbBlockReference>(*database, u"40")->attributeIterator();
        for (; !attribute->done(); attribute->step()) {
            tags += OdDbAttributePtr(attribute->entity())->tag().text();
        }
        EXPECT_EQ(tags, u"AB");
        attribute->start(false);
        EXPECT_EQ(OdDbAttributePtr(attribute->entity())->tag(), u"B");
    }
}

TEST(AttributeDefinitions, TellPromptFromText) {
    for (const char* order :
         {"1 default\n3 Which one?\n2 TAG\n70 2\n", "3 Which one?\n2 TAG\n70 2\n1 default\n"}) {
        OdDbDatabasePtr database =
            Open({.entities = std::string("0 ATTDEF\n5 30\n330 1F\n8 0\n40 2.5\n") + order});
        auto definition = At<OdDbAttributeDefinition>(*database, u"30", OdDb::kForWrite);
        EXPECT_EQ(definition->textString(), u"default");
        EXPECT_EQ(definition->prompt(), u"Which one?");
        EXPECT_EQ(definition->tag(), u"TAG");
        EXPECT_TRUE(definition->isConstant());
        definition->setTextString(u"other");
        EXPECT_EQ(definition->prompt(), u"Which one?");
        EXPECT_EQ(definition->textString(), u"other");
    }
}

}  // namespace
