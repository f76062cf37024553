// What nobody changed comes out byte for byte.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

#include "platform/drawing/dxf/FileInput.h"
#include "tests/platform/dxf/Samples.h"

namespace {

using namespace dxf;
using namespace samples;

std::vector<std::filesystem::path> AllDrawings() {
    std::vector<std::filesystem::path> all = DrawingsIn(FixtureFolder());
    if (const char* folder = std::getenv("KV_DRAWINGS"))
        for (const auto& path : DrawingsIn(folder)) all.push_back(path);
    return all;
}

// The groups of a record written again: codes and values as they were read, line by line.
std::string Rewritten(const Store& store, RecordIndex index) {
    GroupReader groups = store.Groups(index);
    const std::string_view bytes = store.Bytes(index);
    std::string again;
    uint64_t end = 0;
    Group group;
    while (groups.Next(group)) {
        EXPECT_EQ(group.begin, end) << "groups follow each other without a gap";
        again += bytes.substr(group.begin, group.end - group.begin);
        end = group.end;
    }
    return again;
}

void ExpectLossless(Store& store, const std::string& original) {
    ASSERT_TRUE(store.ToBytes() == original) << "as read";
    ASSERT_FALSE(store.ReadOnly());
    for (RecordIndex i = 0; i < store.FileCount(); ++i) store.Replace(i, Rewritten(store, i));
    EXPECT_FALSE(store.Modified());
    ASSERT_TRUE(store.ToBytes() == original) << "every record written back";

    store.BeginRecording();
    for (RecordIndex i = 0; i < store.FileCount(); ++i) {
        std::string changed(store.Bytes(i));
        changed += store.NewWriter(i).String(1000, "x").Take();
        store.Replace(i, changed);
        if (i % 3 == 0) store.InsertAfter(i, store.NewWriter(i).String(0, "POINT").Take());
    }
    EXPECT_TRUE(store.Modified());
    store.Restore(store.EndRecording());
    EXPECT_FALSE(store.Modified());
    ASSERT_TRUE(store.ToBytes() == original) << "after an undo";
}

TEST(RoundTrip, EveryDrawingIsKept) {
    size_t refused = 0;
    for (const auto& path : AllDrawings()) {
        SCOPED_TRACE(path.filename().string());
        std::unique_ptr<Store> store;
        try {
            store = Store::Read(path.string());
        } catch (const Error& error) {
            ++refused;
            EXPECT_NE(std::string(error.what()).find("line 1"), std::string::npos) << error.what();
            continue;
        }
        ExpectLossless(*store, ReadBytes(path));
    }
    EXPECT_LE(refused, 3u);
}

TEST(RoundTrip, BothFormatsHoldTheSame) {
    const auto ascii = Store::Read((FixtureFolder() / "ascii_r2000_lf.dxf").string());
    const auto binary = Store::Read((FixtureFolder() / "binary_r2000.dxf").string());
    ASSERT_EQ(ascii->Count(), binary->Count());
    for (RecordIndex i = 0; i < ascii->Count(); ++i) {
        EXPECT_EQ(ascii->TypeName(i), binary->TypeName(i));
        EXPECT_EQ(ascii->At(i).handle, binary->At(i).handle);
        EXPECT_EQ(ascii->At(i).owner, binary->At(i).owner);
        EXPECT_EQ(ascii->At(i).text == 0, binary->At(i).text == 0);
        EXPECT_EQ(ascii->At(i).xdata == 0, binary->At(i).xdata == 0);
        GroupReader left = ascii->Groups(i), right = binary->Groups(i);
        Group a, b;
        while (left.Next(a)) {
            if (a.code == 999) continue;  // binary files have no comments
            ASSERT_TRUE(right.Next(b));
            EXPECT_EQ(a.code, b.code);
            if (KindOfCode(a.code) == ValueKind::Binary) continue;  // hexadecimal against bytes
            EXPECT_EQ(a.AsInt(), b.AsInt()) << a.code;
            EXPECT_EQ(a.AsDouble(), b.AsDouble()) << a.code;
        }
        EXPECT_FALSE(right.Next(b));
    }
}

TEST(RoundTrip, OldMacintoshLinesAreIndexedAndKept) {
    const auto store = Store::Read((FixtureFolder() / "ascii_r12_cr.dxf").string());
    const RecordIndex text = Find(*store, "TEXT");
    EXPECT_EQ(store->At(text).handle, 0x23u);
    EXPECT_EQ(store->LineOf(text), 133u);
    store->InsertAfter(text, store->NewWriter(text).String(0, "POINT").Handle(5, 0x24).Take());
    EXPECT_EQ(store->ToBytes().find('\n'), std::string::npos);
    EXPECT_EQ(Store::Parse(store->ToBytes())->Count(), store->Count());
}

// What a file holds, or why it is refused.
std::string Outcome(const std::function<std::unique_ptr<Store>()>& open) {
    try {
        const auto store = open();
        const RecordIndex last = store->FileCount() - 2;
        return std::to_string(store->FileCount()) + " records, the last at " +
               std::to_string(store->At(last).offset) + " found by its handle: " +
               std::to_string(store->FindHandle(store->At(last - 1).handle) == last - 1);
    } catch (const Error& error) {
        const std::string what = error.what();
        return what.substr(what.find(": line ") == what.npos ? 0 : what.find(": line ") + 2);
    }
}

// A large file is indexed while it comes, in pieces; the same bytes in memory are the judge.
TEST(RoundTrip, LargeFilesAreIndexedWhileTheyCome) {
    std::string whole = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 1; whole.size() < 9'000'000; ++i)
        whole += "0\nTEXT\n5\n" + std::to_string(100000 + i) + "\n8\nLAYER\n1\n" +
                 std::string(size_t(i % 977), 'c') + "\n";
    const std::string end = "0\nENDSEC\n0\nEOF\n";
    std::string carriageReturns = whole + end;
    std::ranges::replace(carriageReturns, '\n', '\r');
    const auto path =
        std::filesystem::temp_directory_path() / ("large-" + std::to_string(::getpid()) + ".dxf");
    for (const std::string& bytes :
         {whole + end, carriageReturns, whole + "0\nTEXT\n1", "no code\n" + whole + end}) {
        WriteBytes(path, bytes);
        const std::string read = Outcome([&] { return Store::Read(path.string()); });
        EXPECT_EQ(read, Outcome([&] { return Store::Parse(bytes); }));
        EXPECT_TRUE(read.starts_with("line ") || read.ends_with(": 1")) << read;
    }
    std::filesystem::remove(path);
}

TEST(RoundTrip, ALargeFileThatChangesMeanwhileIsRefused) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("changing-" + std::to_string(::getpid()) + ".dxf");
    for (const size_t size : {9'000'001u, 1'000'000u}) {
        WriteBytes(path, std::string(9'000'000, '\n'));
        Buffer bytes;
        FileInput input(path.string(), bytes);
        std::filesystem::resize_file(path, size);
        EXPECT_THROW(input.Finish(), Error) << size;
    }
    std::filesystem::remove(path);
}

}  // namespace
