// Drawings inserted as blocks: what comes along, what is converted, what is refused.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/drawing/DbText.h"
#include "tests/platform/drawing/DrawingBuilder.h"

namespace {

using namespace drawing_test;
namespace fs = std::filesystem;

std::string entity(const std::string& type, const std::string& handle, const std::string& rest,
                   const std::string& owner = "1F") {
    return "0 " + type + "\n5 " + handle + "\n330 " + owner + "\n100 AcDbEntity\n" + rest;
}

const std::string kRoot = "0 DICTIONARY\n5 C\n330 0\n100 AcDbDictionary\n281 1\n";

// Everything that one object may say about another one.
Parts everyReference() {
    Parts parts;
    parts.layers =
        "0 LAYER\n5 20\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Net\n70 0\n"
        "62 3\n6 DASHED\n0 LAYER\n5 21\n330 2\n100 AcDbSymbolTableRecord\n"
        "100 AcDbLayerTableRecord\n2 Shared\n70 0\n62 4\n";
    parts.records =
        "0 BLOCK_RECORD\n5 30\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 *U7\n"
        "70 4\n0 BLOCK_RECORD\n5 31\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n"
        "2 Inner\n";
    parts.blocks =
        "0 BLOCK\n5 32\n330 30\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 *U7\n70 1\n10 0.0\n"
        "20 0.0\n30 0.0\n3 *U7\n1 \n" +
        entity("INSERT", "33", "8 0\n100 AcDbBlockReference\n2 Inner\n10 1.0\n20 2.0\n30 0.0\n",
               "30") +
        "0 ENDBLK\n5 34\n330 30\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n"
        "0 BLOCK\n5 35\n330 31\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 Inner\n70 0\n10 5.0\n"
        "20 0.0\n30 0.0\n3 Inner\n1 \n" +
        entity("LINE", "36",
               "8 Net\n100 AcDbLine\n10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n", "31") +
        "0 ENDBLK\n5 37\n330 31\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
    parts.entities =
        entity("INSERT", "40", "8 Shared\n100 AcDbBlockReference\n66 1\n2 *U7\n10 0.0\n20 0.0\n") +
        entity("ATTRIB", "41",
               "8 0\n100 AcDbText\n10 0.0\n20 0.0\n40 1.0\n1 x\n100 AcDbAttribute\n"
               "2 T\n70 0\n",
               "40") +
        "0 SEQEND\n5 42\n330 40\n100 AcDbEntity\n8 0\n" +
        // An extension dictionary, a reactor, extended data that name the line behind.
        "0 CIRCLE\n5 43\n102 {ACAD_REACTORS\n330 44\n330 C\n102 }\n102 {ACAD_XDICTIONARY\n360 50\n"
        "102 }\n330 1F\n100 AcDbEntity\n8 Net\n100 AcDbCircle\n10 1.0\n20 1.0\n40 2.0\n1001 ACAD\n"
        "1005 44\n1005 C\n1003 Shared\n" +
        entity("LINE", "44", "8 NET\n6 DASHED\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 0.0\n") +
        entity("HATCH", "45",
               "8 0\n100 AcDbHatch\n10 0.0\n20 0.0\n30 0.0\n210 0.0\n220 0.0\n"
               "230 1.0\n2 SOLID\n70 1\n71 1\n91 1\n92 1\n93 0\n97 1\n330 43\n"
               "75 0\n76 1\n98 0\n");
    parts.objects = kRoot +
                    "0 DICTIONARY\n5 50\n330 43\n100 AcDbDictionary\n280 1\n3 A\n360 51\n"
                    "0 XRECORD\n5 51\n330 50\n100 AcDbXrecord\n280 1\n340 45\n1 kept\n";
    return parts;
}

std::string recordOf(OdDbDatabase& drawing, const OdDbObjectId& id) {
    return std::string(drawing.store().Bytes(drawing.store().FindHandle(id.getHandle())));
}

std::string group(int code, const OdDbHandle& handle) {
    return Ascii(std::to_string(code) + " " + handle.ascii().narrowText() + "\n");
}

struct Inserted {
    OdDbDatabasePtr source, target;
    OdDbBlockTableRecordPtr block;

    Inserted(const Parts& from, const Parts& to) : source(Open(from)), target(Open(to)) {
        block = target->insert(u"NEW", source).openObject(OdDb::kForWrite);
    }
    OdDbEntityPtr at(int place) {
        OdDbObjectIteratorPtr walk = block->newIterator();
        while (place-- > 0) walk->step();
        return walk->entity();
    }
    std::string bytes(const OdDbObject& object) { return recordOf(*target, object.objectId()); }
    OdDbObjectId blockNamed(const char16_t* name) {
        return OdDbBlockTablePtr(target->getBlockTableId().openObject())->getAt(name);
    }
};

TEST(Insert, CopiesLeadToCopiesAndWhatIsThereByNameServes) {
    Parts to;
    to.layers =
        "0 LAYER\n5 77\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n"
        "2 SHARED\n70 0\n62 7\n";
    Inserted got(everyReference(), to);
    const OdDbEntityPtr reference = got.at(0), circle = got.at(1), line = got.at(2);
    const OdDbEntityPtr hatch = got.at(3);
    EXPECT_EQ(reference->layer(), u"SHARED");
    EXPECT_EQ(circle->ownerId(), got.block->objectId());
    const std::string bytes = got.bytes(*circle);
    EXPECT_NE(bytes.find(group(1005, line->getDbHandle()) + Ascii("1005 0\n1003 Shared\n")),
              std::string::npos);
    EXPECT_NE(bytes.find(Ascii("102 {ACAD_REACTORS\n") + group(330, line->getDbHandle()) +
                         Ascii("102 }\n")),
              std::string::npos)
        << bytes;
    EXPECT_NE(got.bytes(*hatch).find(group(330, circle->getDbHandle())), std::string::npos);
    const auto attributes = OdDbBlockReferencePtr(reference)->attributeIterator();
    ASSERT_FALSE(attributes->done());
    EXPECT_EQ(attributes->entity()->ownerId(), reference->objectId());
    // The layer that the target lacks came with its line type by name; the other kept its colour.
    OdDbLayerTablePtr layers = got.target->getLayerTableId().openObject();
    EXPECT_NE(recordOf(*got.target, layers->getAt(u"net")).find(Ascii("2 Net\n70 0\n62 3\n")),
              std::string::npos);
    EXPECT_NE(recordOf(*got.target, layers->getAt(u"Shared")).find(Ascii("62 7\n")),
              std::string::npos);
}

TEST(Insert, AnonymousBlocksGetFreeNamesAndExtensionDictionariesComeWhole) {
    Inserted got(everyReference(), {});
    EXPECT_EQ(OdDbBlockReferencePtr(got.at(0))->blockName(), u"*U1");
    const OdDbBlockTableRecordPtr inner = got.blockNamed(u"Inner").openObject();
    EXPECT_EQ(inner->origin(), (OdGePoint3d{5, 0, 0}));
    EXPECT_EQ(inner->newIterator()->entity()->layer(), u"Net");
    const OdDbEntityPtr circle = got.at(1);
    const std::string bytes = got.bytes(*circle);
    const OdDbHandle handle(bytes.substr(bytes.find("360\n") + 4).c_str());
    const OdDbObjectPtr extension = got.target->getOdDbObjectId(handle).openObject();
    ASSERT_FALSE(extension.isNull()) << bytes;
    EXPECT_EQ(extension->ownerId(), circle->objectId());
    const OdDbObjectId entry = OdDbDictionaryPtr(extension)->getAt(u"A");
    EXPECT_NE(recordOf(*got.target, entry).find(group(340, got.at(3)->getDbHandle())),
              std::string::npos);
    // Nothing of the source was touched.
    EXPECT_FALSE(got.source->isModified());
}

TEST(Insert, ADeepCloneWithinADrawingGoesOnUsingWhatTheOriginalsUse) {
    const OdDbDatabasePtr drawing = Open(everyReference());
    const OdDbObjectId inner = drawing->getOdDbObjectId(OdDbHandle(0x31));
    OdDbObjectIdArray ids;
    for (const int handle : {0x40, 0x43, 0x44}) {
        ids.append(drawing->getOdDbObjectId(OdDbHandle(handle)));
    }
    const std::string before = drawing->toBytes();
    drawing->startUndoRecord();
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    drawing->deepCloneObjects(ids, inner, *mapping);
    drawing->endUndoRecord();
    const OdDbObjectId circle = mapping->valueOf(ids[1]), line = mapping->valueOf(ids[2]);
    EXPECT_EQ(OdDbEntityPtr(circle.openObject())->ownerId(), inner);
    EXPECT_EQ(OdDbBlockReferencePtr(mapping->valueOf(ids[0]).openObject())->blockName(), u"*U7");
    EXPECT_NE(recordOf(*drawing, circle).find(group(1005, line.getHandle()) + Ascii("1005 C\n")),
              std::string::npos);
    EXPECT_THROW(ids[3], OdError_InvalidIndex);
    drawing->undo();
    EXPECT_EQ(drawing->toBytes(), before);
    drawing->redo();
    OdDbBlockTableRecordPtr block = inner.openObject();
    OdDbObjectIteratorPtr walk = block->newIterator();
    for (int i = 0; i < 4; ++i, walk->step()) EXPECT_FALSE(walk->done());
    EXPECT_TRUE(walk->done());
}

struct Conversion {
    const char* name;
    std::string sourceVersion, targetVersion;
    std::string entity;  // in the source, in its code page
    std::string found;   // in the block of the target, "" when the source is refused
};

class Versions : public testing::TestWithParam<Conversion> {};

TEST_P(Versions, AreConvertedOrRefusedWithNothingChanged) {
    const Conversion& c = GetParam();
    Parts from, to;
    from.version = c.sourceVersion;
    to.version = c.targetVersion;
    from.entities = c.entity;
    const OdDbDatabasePtr source = Open(from), target = Open(to);
    const std::string before = target->toBytes();
    if (c.found.empty()) {
        EXPECT_EQ(Raised([&] { target->insert(u"NEW", source); }), eNotApplicable);
        EXPECT_EQ(target->toBytes(), before);
        EXPECT_FALSE(target->isModified());
    } else {
        target->insert(u"NEW", source);
        EXPECT_NE(target->toBytes().find(Ascii(c.found)), std::string::npos) << target->toBytes();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Insert, Versions,
    testing::Values(Conversion{"CodePageToUtf8", "AC1015", "AC1024",
                               entity("TEXT", "40", "8 0\n100 AcDbText\n1 \xE9\n"),
                               "100 AcDbText\n1 \xC3\xA9\n"},
                    Conversion{"Utf8ToCodePage", "AC1024", "AC1015",
                               entity("TEXT", "40", "8 0\n100 AcDbText\n1 \xC3\xA9\xCE\xA9\n"),
                               "100 AcDbText\n1 \xE9\\U+03A9\n"},
                    Conversion{"GroupsThatTheOlderDoesNotKnow", "AC1024", "AC1015",
                               entity("LINE", "40",
                                      "8 0\n420 255\n370 30\n347 0\n100 AcDbLine\n10 1.50\n"),
                               "8 0\n370 30\n100 AcDbLine\n10 1.50\n"},
                    Conversion{"EntityThatTheOlderDoesNotKnow", "AC1024", "AC1015",
                               entity("MULTILEADER", "40", "8 0\n100 AcDbMLeader\n"), ""},
                    Conversion{"R12IntoLater", "AC1009", "AC1015", "0 LINE\n8 0\n10 0.0\n", ""},
                    Conversion{"LaterIntoR12", "AC1015", "AC1009",
                               entity("LINE", "40", "8 0\n100 AcDbLine\n10 0.0\n"), ""},
                    Conversion{"R12IntoR12", "AC1009", "AC1009", "0 LINE\n8 0\n10 7.25\n",
                               "0 LINE\n8 0\n10 7.25\n"}),
    [](const auto& info) { return info.param.name; });

TEST(Insert, BinaryAndAsciiDrawingsExchangeTheirBlocks) {
    Parts parts;
    parts.entities = entity("TEXT", "40", "8 0\n62 3\n100 AcDbText\n10 1.25\n20 2.0\n1 one^Jtwo\n");
    const OdDbDatabasePtr ascii = Open(parts), binary = OpenBytes(Binary(Lines(parts)));
    for (auto& [target, source] : {std::pair(ascii, binary), std::pair(binary, ascii)}) {
        OdDbBlockTableRecordPtr block = target->insert(u"NEW", source).openObject();
        const OdDbTextPtr text = block->newIterator()->entity();
        EXPECT_EQ(text->textString(), u"one\ntwo");
        EXPECT_EQ(text->color().colorIndex, 3);
        EXPECT_FALSE(Reopened(*target)->isReadOnly());
    }
}

TEST(Insert, RefusesWhatIsNoSourceAndATakenName) {
    const OdDbDatabasePtr target = Open(everyReference()), source = Open({});
    EXPECT_EQ(Raised([&] { target->insert(u"NEW", nullptr); }), eInvalidInput);
    EXPECT_EQ(Raised([&] { target->insert(u"NEW", target); }), eInvalidInput);
    EXPECT_EQ(Raised([&] { target->insert(u"inner", source); }), eDuplicateKey);
    EXPECT_FALSE(target->isModified());
}

// Undone and done anew, under the same name.
TEST(Insert, ABlockThatAnUndoTookBackIsNotThere) {
    const OdDbDatabasePtr target = Open({}), source = Open(everyReference());
    const std::string before = target->toBytes();
    for (int round = 0; round < 2; ++round) {
        target->startUndoRecord();
        OdDbBlockTableRecordPtr block = target->insert(u"NEW", source).openObject();
        EXPECT_EQ(OdDbEntityPtr(block->newIterator()->entity())->layer(), u"Shared");
        target->endUndoRecord();
        target->undo();
        EXPECT_EQ(target->toBytes(), before);
        const OdDbBlockTablePtr blocks = target->getBlockTableId().openObject();
        EXPECT_TRUE(blocks->getAt(u"NEW").isNull());
    }
}

std::vector<fs::path> drawings() {
    std::vector<fs::path> found;
    const char* given = std::getenv("KV_DRAWINGS");
    for (const fs::path& folder : {fs::path(given ? given : KV_SOURCE_DIR "/tests/fixtures"),
                                   fs::path(KV_SOURCE_DIR "/examples")}) {
        for (const auto& entry : fs::directory_iterator(folder)) {
            constexpr uintmax_t kLargest = 700'000;  // the reader takes its time
            const bool drawing = entry.path().extension().string().starts_with(".dx");
            if (drawing && entry.file_size() < kLargest) found.push_back(entry.path());
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

TEST(Insert, RealDrawingsBecomeBlocksThatAnotherReaderApproves) {
    const fs::path folder = fs::path(testing::TempDir()) / ("inserted" + std::to_string(getpid()));
    const fs::path target = KV_SOURCE_DIR "/examples/block_pages.dxf";
    fs::create_directories(folder);
    std::ofstream cases(folder / "cases");
    size_t count = 0;
    for (const fs::path& source : drawings()) {
        const OdDbDatabasePtr drawing = OdDbDatabase::readFile(target.string());
        const std::string before = drawing->toBytes();
        drawing->startUndoRecord();
        try {
            drawing->insert(u"NEW", OdDbDatabase::readFile(source.string()));
        } catch (const OdError& error) {
            const bool reason = error.code() == eNotApplicable || error.code() == eFileReadError;
            EXPECT_TRUE(reason) << source << ": " << error.description().narrowText();
            EXPECT_EQ(drawing->toBytes(), before) << source;
            continue;
        }
        drawing->endUndoRecord();
        const fs::path out = folder / (std::to_string(count++) + ".dxf");
        drawing->writeFile(out.string());
        cases << out.string() << '\t' << source.string() << '\t' << target.string() << "\tNEW\n";
        drawing->undo();
        EXPECT_EQ(drawing->toBytes(), before) << source;
    }
    cases.close();
    EXPECT_GT(count, 2u);
    const std::string command = "/usr/bin/python3 " KV_SOURCE_DIR
                                "/tests/tools/check_blocks.py "
                                "inserted < " +
                                (folder / "cases").string();
    EXPECT_EQ(OutputOf(command), "");
    fs::remove_all(folder);
}

}  // namespace
