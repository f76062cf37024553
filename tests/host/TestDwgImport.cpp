// Converters of all kinds, each a small script.
#include <filesystem>
#include <fstream>

#include "host/DwgImport.h"
#include "tests/host/Support.h"

namespace {

class DwgImport : public testing::Test {
  protected:
    void SetUp() override {
        WriteFile(dwg, bytes);
        std::ofstream(foreign, std::ios::binary) << bytes;
        WriteFile(drawing, SmallDrawing());
    }
    void TearDown() override { std::filesystem::remove(foreign); }  // Qt would leave it
    // $1 is the copy of the DWG drawing, $2 what is to be written, $3 a DXF drawing.
    OdDbDatabasePtr Import(const QString& script, int seconds = 60) {
        const QStringList command{"sh", "-c", script, "sh", "{in}", "{out}", drawing};
        return host::ImportDwg(dwg.toStdString(), {command, std::chrono::seconds(seconds)});
    }

    Folder folder;
    const std::string bytes = "AC1032" + std::string(100, '\0');
    const QString dwg = folder.File("a 'b\" ; $(c).dwg");
    // Of another system, whose names are not UTF-8.
    const std::string foreign = folder.File("caf").toStdString() + "\xE9.dwg";
    const QString drawing = folder.File("drawing.dxf");
};

TEST_F(DwgImport, GivesTheDrawingAsNotSaved) {
    const OdDbDatabasePtr imported =
        Import("head -c 6 \"$1\" | grep -q AC1032 && cp \"$3\" \"$2\" && echo gone > \"$1\"");
    EXPECT_EQ(imported->toBytes(), SmallDrawing());
    EXPECT_TRUE(imported->isModified());
    EXPECT_EQ(ReadFile(dwg), bytes) << "the converter had a copy";
    EXPECT_TRUE(host::IsDwg(foreign));
    EXPECT_EQ(host::ImportDwg(foreign, {{"cp", drawing, "{out}"}})->toBytes(), SmallDrawing());
}

TEST_F(DwgImport, FailuresAreOneLineWithTheReason) {
    const struct {
        const char* script;
        int seconds;
        const char* reason;
    } cases[] = {
        {"echo first; echo no such version >&2; exit 3", 60, "failed: no such version"},
        {"kill -9 $$", 60, "failed: it printed nothing"},
        {"exit 0", 60, "wrote no drawing"},
        {"echo nonsense > \"$2\"", 60, "wrote no DXF drawing: "},
        {"head -n 60 \"$3\" > \"$2\"", 60, "wrote half a drawing"},
        {"sed '/^OBJECTS$/,$d' \"$3\" | head -n -3 > \"$2\"", 60, "wrote half a drawing"},
        {"while :; do :; done", 1, "took longer than 1 seconds"},
    };
    for (const auto& one : cases) {
        const std::string line = ErrorOf([&] { Import(one.script, one.seconds); });
        EXPECT_NE(line.find(one.reason), std::string::npos) << one.script << ": " << line;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
        EXPECT_EQ(ReadFile(dwg), bytes);
    }
    const auto with = [&](const QStringList& command) {
        return ErrorOf([&] { host::ImportDwg(dwg.toStdString(), {command}); });
    };
    EXPECT_NE(with({}).find("the settings name no converter"), std::string::npos);
    EXPECT_NE(with({"/no/such/program", "{in}", "{out}"}).find("does not start"),
              std::string::npos);
}

TEST_F(DwgImport, IsAskedForByContentAndNotByName) {
    EXPECT_TRUE(host::IsDwg(dwg.toStdString()));
    EXPECT_FALSE(host::IsDwg(drawing.toStdString()));
    EXPECT_FALSE(host::IsDwg(folder.File("none.dwg").toStdString()));
    WriteFile(drawing, "ACCESS");
    EXPECT_FALSE(host::IsDwg(drawing.toStdString()));
}

}  // namespace
