// Whole drawings: nothing is lost by opening everything, and what is written is sound to others.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/EObjString.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;
namespace fs = std::filesystem;

namespace {

std::vector<fs::path> drawings() {
    const char* given = std::getenv("KV_DRAWINGS");
    const fs::path folder = given ? given : KV_SOURCE_DIR "/tests/fixtures";
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string kind = entry.path().extension().string();
        if (kind == ".dxf" || kind == ".dxb") files.push_back(entry.path());
    }
    return files;
}

// Opens an object for write, marks it modified, and reads all that its class can tell.
void touch(const OdDbObjectPtr& object) {
    object->assertWriteEnabled();
    object->ownerId();
    object->xData();
    if (auto entity = OdDbEntity::cast(object); !entity.isNull()) entity->layer();
    if (auto text = OdDbText::cast(object); !text.isNull()) {
        text->setTextString(text->textString());
    }
    if (auto text = OdDbMText::cast(object); !text.isNull()) text->setContents(text->contents());
    if (auto reference = OdDbBlockReference::cast(object); !reference.isNull()) {
        reference->blockTableRecord().openObject();
        for (auto i = reference->attributeIterator(); !i->done(); i->step()) i->entity();
    }
    if (auto dictionary = OdDbDictionary::cast(object); !dictionary.isNull()) {
        for (auto i = dictionary->newIterator(OdRx::kDictSorted); !i->done(); i->next()) {
            i->getObject();
        }
    }
    if (auto block = OdDbBlockTableRecord::cast(object); !block.isNull()) {
        for (auto i = block->newIterator(); !i->done(); i->step()) i->entity();
    }
}

TEST(Drawings, AreUnchangedAfterEveryObjectWasOpenForWrite) {
    size_t read = 0, refused = 0, objects = 0;
    for (const fs::path& file : drawings()) {
        OdDbDatabasePtr database;
        if (Raised([&] { database = OdDbDatabase::readFile(file.string()); }) != eOk) {
            ++refused;
            continue;
        }
        ++read;
        const OdDb::OpenMode mode = database->isReadOnly() ? OdDb::kForRead : OdDb::kForWrite;
        for (dxf::RecordIndex i = 0; i < database->store().FileCount(); ++i) {
            const OdDbObjectId id = database->getOdDbObjectId(database->store().At(i).handle);
            if (id.isNull() || mode == OdDb::kForRead) continue;
            touch(id.openObject(mode));
            ++objects;
        }
        EXPECT_TRUE(database->toBytes() == database->store().Original()) << file;
    }
    EXPECT_GT(read, 3u);
    EXPECT_GT(objects, 50u);
    EXPECT_LE(refused, 3u);
}

TEST(Drawings, ThatAreDamagedOrMissingGiveOneClearLine) {
    for (const std::string& path : {std::string("/nonexistent/drawing.dxf"), std::string("/")}) {
        try {
            OdDbDatabase::readFile(path);
            FAIL() << path;
        } catch (const OdError& error) {
            EXPECT_EQ(error.code(), eFileReadError);
            EXPECT_NE(error.description().narrowText().find(path), std::string::npos);
        }
    }
}

class Audited : public ::testing::Test {
  protected:
    Audited() { fs::create_directories(folder); }
    ~Audited() override { fs::remove_all(folder); }

    // Runs Python with ezdxf on a file of the folder; what it prints.
    std::string python(const std::string& name, const std::string& body) {
        const fs::path script = folder / "script.py", output = folder / "output.txt";
        std::ofstream(script) << "import ezdxf, sys\npath = sys.argv[1]\n" << body;
        const std::string command = "/usr/bin/python3 '" + script.string() + "' '" +
                                    (folder / name).string() + "' > '" + output.string() + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0);
        std::ifstream stream(output);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }

    const fs::path folder =
        fs::temp_directory_path() / ("drawing_test_" + std::to_string(getpid()));
};

TEST_F(Audited, WhatIsWrittenIsSoundToAnotherProgram) {
    for (const std::string version : {"R2000", "R2010", "R2018"}) {
        python("in.dxf", "doc = ezdxf.new('" + version +
                             "')\n"
                             "block = doc.blocks.new('SYM')\n"
                             "block.add_attdef('TAG', (0, 0))\n"
                             "model = doc.modelspace()\n"
                             "model.add_text('Motor')\n"
                             "model.add_mtext('Pumpe')\n"
                             "model.add_lwpolyline([(0, 0), (1, 1)])\n"
                             "model.add_blockref('SYM', (0, 0)).add_attrib('TAG', 'K1')\n"
                             "doc.saveas(path)\n");
        OdDbDatabasePtr database = OdDbDatabase::readFile((folder / "in.dxf").string());
        OdDbBlockTableRecordPtr model = database->getModelSpaceId().openObject();
        for (auto i = model->newIterator(); !i->done(); i->step()) {
            OdDbEntityPtr entity = i->entity(OdDb::kForWrite);
            if (auto text = OdDbText::cast(entity); !text.isNull()) text->setTextString(u"Engine");
            if (auto text = OdDbMText::cast(entity); !text.isNull()) {
                text->setContents(std::u16string(600, u'p'));
            }
            if (OdDbPolyline::cast(entity).isNull()) continue;
            OdResBufPtr data = OdResBuf::newRb(1001, u"WIRE");
            data->setNext(OdResBuf::newRb(1000, u"N1\fred"));
            entity->setXData(data);
        }
        OdDbDictionaryPtr root =
            database->getNamedObjectsDictionaryId().openObject(OdDb::kForWrite);
        OdDbDictionaryPtr inner = OdDbDictionary::createObject();
        root->setAt(u"TEXTS", inner);
        EObjStringPtr record = EObjString::createObject();
        record->setValue(std::u16string(600, u'r'));
        inner->setAt(u"1", record);
        database->writeFile((folder / "out.dxf").string());

        EXPECT_EQ(
            python("out.dxf",
                   "doc = ezdxf.readfile(path)\n"
                   "auditor = doc.audit()\n"
                   "print(len(auditor.errors), len(auditor.fixes))\n"
                   "model = doc.modelspace()\n"
                   "print(model.query('TEXT')[0].dxf.text, len(model.query('MTEXT')[0].text))\n"
                   "wire = model.query('LWPOLYLINE')[0]\n"
                   "print(wire.get_xdata('WIRE'), 'WIRE' in doc.appids)\n"
                   "record = doc.rootdict['TEXTS']['1']\n"
                   "print(sum(len(tag.value) for tag in record.tags[1:]))\n"),
            "0 0\nEngine 600\n[DXFTag(1000, 'N1^Lred')] True\n600\n")
            << version;
    }
}

TEST_F(Audited, SavingMarksTheDrawingAndReplacesTheFile) {
    const std::string path = (folder / "own.dxf").string();
    std::ofstream(path) << Ascii(Lines({.entities = "0 TEXT\n5 30\n8 0\n40 2.5\n1 Motor\n"}));
    OdDbDatabasePtr database = OdDbDatabase::readFile(path);
    At<OdDbText>(*database, u"30", OdDb::kForWrite)->setTextString(u"Pump");
    EXPECT_TRUE(database->isModified());
    EXPECT_EQ(Raised([&] {
                  database->writeFile(path, false, [](const std::string&) {
                      throw OdError(OdString(u"not certified"));
                  });
              }),
              eGeneralError);
    EXPECT_TRUE(database->isModified());
    EXPECT_EQ(Raised([&] { database->writeFile("/nonexistent/x.dxf"); }), eFileWriteError);
    std::ofstream(path, std::ios::app) << "later";
    EXPECT_EQ(Raised([&] { database->writeFile(path); }), eFileChanged);
    database->writeFile(path, true);
    EXPECT_FALSE(database->isModified());
    OdDbDatabasePtr again = OdDbDatabase::readFile(path);
    EXPECT_EQ(At<OdDbText>(*again, u"30")->textString(), u"Pump");
}

}  // namespace
