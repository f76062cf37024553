// What the pass over a file makes of odd, old, damaged and foreign ones.
#include <gtest/gtest.h>

#include "tests/platform/dxf/Samples.h"

namespace {

using namespace dxf;
using namespace samples;
using namespace std::literals;

struct HintCase {
    const char* what;
    Groups groups;
    uint64_t handle, owner;
    const char* text;   // the value the text hint leads to
    const char* xdata;  // the same of the extended data
    const char* layer;
};

std::string ValueAt(const Store& store, RecordIndex index, uint32_t offset) {
    Group group;
    return offset != 0 && store.Groups(index, offset).Next(group) ? std::string(group.value) : "";
}

TEST(Parse, HintsOfRecords) {
    const HintCase cases[] = {
        {"usual",
         {{0, "TEXT"}, {5, "1A"}, {330, "1F"}, {8, "P"}, {1, "t"}, {1001, "V"}},
         0x1A,
         0x1F,
         "t",
         "V",
         "P"},
        {"reactors come first",
         {{0, "TEXT"}, {5, "1"}, {102, "{ACAD_REACTORS"}, {330, "9"}, {102, "}"}, {330, "2"}},
         1,
         2,
         "",
         "",
         ""},
        {"chunks begin the text", {{0, "MTEXT"}, {3, "a"}, {3, "b"}, {1, "c"}}, 0, 0, "a", "", ""},
        {"an embedded object repeats codes",
         {{0, "ATTRIB"}, {101, "Embedded Object"}, {1, "no"}, {5, "7"}, {8, "no"}, {1001, "V"}},
         0,
         0,
         "",
         "V",
         ""},
        {"extended data repeat codes",
         {{0, "LINE"}, {1001, "V"}, {5, "7"}, {1001, "W"}},
         0,
         0,
         "",
         "V",
         ""},
        {"the handle of a dimension style is 105",
         {{0, "DIMSTYLE"}, {5, "7"}, {105, "27"}, {330, "A"}},
         0x27,
         0xA,
         "",
         "",
         ""},
        {"padded, with trailing blanks and tabs",
         {{0, "TEXT "}, {5, " 0001b "}, {8, " P "}, {1, " t "}},
         0x1B,
         0,
         " t ",
         "",
         " P "},
        {"no handle", {{0, "TEXT"}, {5, ""}, {1, ""}}, 0, 0, "", "", ""},
    };
    for (const HintCase& hint : cases) {
        SCOPED_TRACE(hint.what);
        const auto store = Store::Parse(Drawing(hint.groups));
        const RecordIndex index = 3;
        const Record& record = store->At(index);
        EXPECT_EQ(record.handle, hint.handle);
        EXPECT_EQ(record.owner, hint.owner);
        EXPECT_EQ(ValueAt(*store, index, record.text), hint.text);
        EXPECT_EQ(ValueAt(*store, index, record.xdata), hint.xdata);
        EXPECT_EQ(store->LayerName(record.layer), hint.layer);
        EXPECT_EQ(record.section, Section::Entities);
    }
}

TEST(Parse, OddButSoundFilesAreEditable) {
    const std::string body = "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nP\n1\nx\n0\nENDSEC\n";
    const std::pair<std::string, RecordIndex> cases[] = {
        {body + "0\nEOF", 4},
        {body + "0\nEOF\n\x1a", 4},
        {body + "0\nEOF\nnonsense\n\n0\nSECTION\n", 4},
        {body, 3},
        {body + "\n \t\n\x1a", 3},
        {"\xEF\xBB\xBF" + body, 3},
        {"999\ncomment\n" + body, 3},
        {"  0\r\nSECTION\r\n  2\r\nENTITIES\r\n\t0\t\r\nTEXT\r\n 08 \r\nP\r\n-1\r\n\x0b\x0c\x85 "
         "\r\n999\r\nin between\r\n0001\r\nx\r\n   0\r\nENDSEC\r\n0\r\nEOF\r\n",
         4},
    };
    for (const auto& [file, count] : cases) {
        SCOPED_TRACE(file);
        const auto store = Store::Parse(file);
        EXPECT_EQ(store->Count(), count);
        EXPECT_FALSE(store->ReadOnly());
        EXPECT_EQ(store->LayerName(store->At(1).layer), "P");
        EXPECT_EQ(ValueAt(*store, 1, store->At(1).text), "x");
        EXPECT_EQ(store->ToBytes(), file);
    }
}

struct DamageCase {
    std::string file;
    const char* reason;  // in the finding or in the error
    uint64_t line;       // of the finding
};

TEST(Parse, FilesThatCannotBeEditedSafelyAreReadOnly) {
    const DamageCase cases[] = {
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\n5\n8\nP\n1\nx\n0\nENDSEC\n0\nEOF\n", "\"P\"", 9},
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\nextra\n8\nP\n0\nENDSEC\n0\nEOF\n", "\"extra\"", 7},
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nP\n", "ends inside a section", 0},
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nP\n0\nEOF\n", "no ENDSEC", 9},
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nP\n0\nSECTION\n2\nOBJECTS\n0\nENDSEC\n0\nEOF\n",
         "no ENDSEC", 9},
    };
    for (const DamageCase& damage : cases) {
        SCOPED_TRACE(damage.file);
        const auto store = Store::Parse(damage.file);
        ASSERT_TRUE(store->ReadOnly());
        EXPECT_NE(store->Findings()[0].text.find(damage.reason), std::string::npos);
        EXPECT_EQ(store->Findings()[0].line, damage.line);
        EXPECT_EQ(store->At(1).type, RecordType::Text) << "what can be read is read";
        EXPECT_THROW(store->SetErased(1, true), Error);
        EXPECT_THROW(store->Replace(1, "0\nTEXT\n"), Error);
        EXPECT_THROW(store->InsertAfter(1, "0\nTEXT\n"), Error);
        EXPECT_EQ(store->ToBytes(), damage.file);
    }
}

TEST(Parse, ForeignAndHopelessFilesAreRefusedWithTheReason) {
    const std::string sentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);
    const DamageCase cases[] = {
        {"", "empty", 0},
        {"\x89PNG\r\n\x1a\n", "PNG", 0},
        {"AC1032\0\0\0\0\0"s, "DWG", 0},
        {"Dear Sir,\nplease find enclosed\n", "line 1", 0},
        {"1\n2\n3\n4\n", "no SECTION", 0},
        {"0\nSECTION\n2\nENTITIES\n0\nTEXT\n 1\n", "line 7: the file ends inside a group", 0},
        {sentinel + "\0SECTION\0\2ENTI"s, "ends inside a group", 0},
        {sentinel + "\0\0SECTION\0\x0a\0\1\2"s, "ends inside a group", 0},
        {sentinel, "no SECTION", 0},
    };
    for (const DamageCase& damage : cases) {
        SCOPED_TRACE(damage.file);
        try {
            Store::Parse(damage.file);
            FAIL() << "was read";
        } catch (const Error& error) {
            EXPECT_NE(std::string(error.what()).find(damage.reason), std::string::npos)
                << error.what();
        }
    }
    for (const char* path : {"/", "/no/such/folder/drawing.dxf"})
        EXPECT_THROW(Store::Read(path), Error);
}

TEST(Parse, EveryTruncationIsReadOrRefusedAndNeverEditedInTheMiddle) {
    for (const char* name : {"ascii_r2000_lf.dxf", "binary_r2000.dxf"}) {
        const std::string whole = ReadBytes(FixtureFolder() / name);
        for (size_t size = 0; size < whole.size() - 8; ++size) {
            try {
                const auto store = Store::Parse(whole.substr(0, size));
                const bool complete = store->At(store->Count() - 1).type == RecordType::Endsec;
                EXPECT_TRUE(store->ReadOnly() || complete) << name << " at " << size;
                EXPECT_EQ(store->ToBytes(), whole.substr(0, size));
            } catch (const Error&) {
            }
        }
    }
}

TEST(Parse, AFileOfNothingButTinyRecordsIsRefused) {
    std::string file = "0\nSECTION\n2\nENTITIES\n";
    while (file.size() < 2'000'000) file += "0\nA\n";
    EXPECT_THROW(Store::Parse(file), Error);
}

TEST(Parse, Versions) {
    const std::pair<const char*, Version> cases[] = {
        {"AC1003", Version::Older}, {"AC1009", Version::R12},     {"AC1012", Version::R13},
        {"AC1014", Version::R14},   {"AC1015", Version::R2000},   {"AC1018", Version::R2004},
        {"AC1021", Version::R2007}, {" AC1024 ", Version::R2010}, {"AC1027", Version::R2013},
        {"AC1032", Version::R2018}, {"AC1035", Version::R2018},   {"nonsense", Version::R12},
    };
    for (const auto& [name, version] : cases)
        EXPECT_EQ(Store::Parse(Drawing({}, name))->FileVersion(), version) << name;
    EXPECT_EQ(Store::Parse("0\nSECTION\n0\nENDSEC\n0\nEOF\n")->VersionName(), "");
}

// Blocks of 64 KiB meet lines of every length at every place; the reader of groups is the judge.
TEST(Parse, BlockBordersChangeNothing) {
    std::string groups;
    for (size_t i = 0; groups.size() < 400'000; ++i)
        groups += "  0\nTEXT\n  5\n" + std::to_string(1000000 + i) + "\n  1\n" +
                  std::string(i % 97, 'x') + "\n";
    const auto store = Store::Parse("0\nSECTION\n2\nENTITIES\n" + groups + "0\nENDSEC\n0\nEOF\n");
    GroupReader reader = store->OriginalGroups();
    Group group;
    RecordIndex at = kNoRecord;
    while (reader.Next(group)) {
        if (group.code == 0) {
            ASSERT_EQ(store->At(++at).offset, group.begin);
        } else if (group.code == 5) {
            ASSERT_EQ(store->At(at).handle, group.AsHandle());
        } else if (group.code == 1) {
            ASSERT_EQ(store->At(at).offset + store->At(at).text, group.begin);
        }
    }
    EXPECT_EQ(at + 1, store->Count());
}

}  // namespace
