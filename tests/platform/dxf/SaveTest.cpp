// A save replaces the file whole or leaves it alone.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/platform/dxf/Samples.h"

namespace {

using namespace dxf;
using namespace samples;
namespace fs = std::filesystem;

class Save : public testing::Test {
  protected:
    void SetUp() override {
        folder = fs::temp_directory_path() /
                 ("save-test-" + std::to_string(::getpid()) + "-" +
                  testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(folder);
        path = (folder / "drawing.dxf").string();
        original = Drawing({{0, "TEXT"}, {5, "A"}, {1, "velho"}});
        WriteBytes(path, original);
        store = Store::Read(path);
        store->Replace(3, Lines({{0, "TEXT"}, {5, "A"}, {1, "novo"}}));
        changed = store->ToBytes();
    }
    void TearDown() override { fs::remove_all(folder); }

    // The target as it was, and nothing beside it.
    void ExpectUntouched() const {
        EXPECT_EQ(ReadBytes(path), original);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    }

    fs::path folder;
    std::string path, original, changed;
    std::unique_ptr<Store> store;
};

TEST_F(Save, ReplacesTheFileAndKeepsItsPermissions) {
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    std::string seen;
    store->Save(path, false, [&](const std::string& temporary) {
        seen = ReadBytes(temporary);
        EXPECT_EQ(ReadBytes(path), original) << "the old file stands until the new one is verified";
    });
    EXPECT_EQ(seen, changed);
    EXPECT_EQ(ReadBytes(path), changed);
    EXPECT_EQ(int(fs::status(path).permissions()), 0640);
    store->Save(path);  // its own save is no change by others
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST_F(Save, FollowsALinkAndKeepsIt) {
    const fs::path link = folder / "link.dxf";
    fs::create_symlink("drawing.dxf", link);
    store->Save(link.string());
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(ReadBytes(path), changed);
}

TEST_F(Save, WhatVerifyThrowsEndsIt) {
    EXPECT_THROW(store->Save(path, false, [](auto&) { throw std::logic_error("no"); }),
                 std::logic_error);
    ExpectUntouched();
}

TEST_F(Save, AFileThatChangedOnDiskIsNotOverwrittenUnasked) {
    original += "999\nsomebody else\n";
    WriteBytes(path, original);
    EXPECT_THROW(store->Save(path), Error);
    ExpectUntouched();
    store->Save((folder / "other.dxf").string());
    EXPECT_EQ(ReadBytes(folder / "other.dxf"), changed);
    store->Save(path, true);
    EXPECT_EQ(ReadBytes(path), changed);
}

TEST_F(Save, AlsoNotTheFileThatWasSavedLast) {
    const std::string other = (folder / "other.dxf").string();
    store->Save(other);
    store->Save(other);
    WriteBytes(other, "somebody else");
    EXPECT_THROW(store->Save(other), Error);
    EXPECT_EQ(ReadBytes(other), "somebody else");
}

TEST_F(Save, AWriteProtectedFileIsNotReplaced) {
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_THROW(store->Save(path), Error);
    ExpectUntouched();
}

TEST_F(Save, PlacesThatCannotBeWritten) {
    for (const char* target : {"/no/such/folder/a.dxf", "/proc/a.dxf", "/proc/self"}) {
        try {
            store->Save(target);
            ADD_FAILURE() << target;
        } catch (const Error& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
    }
    EXPECT_TRUE(store->Modified());
}

// The end of a child process: 0 when the save failed as it should.
int InChild(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Save, AFullDiskLeavesTheOldFile) {
    const int end = InChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64, 64};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        try {
            store->Save(path);
        } catch (const Error&) {
            return 0;
        }
        return 1;
    });
    EXPECT_EQ(end, 0);
    ExpectUntouched();
}

// The child saves two states over and over until it is killed in the middle of something.
TEST_F(Save, KilledAtAnyMomentTheFileIsTheOldOrTheNewOne) {
    std::string large = original;
    large.insert(large.find("0\nENDSEC\n0\nEOF"),
                 Lines({{0, "POINT"}, {8, "P"}}) + "999\n" + std::string(300'000, 'x') + "\n");
    WriteBytes(path, large);
    const auto kept = Store::Read(path);
    std::string other = large;
    other.replace(other.find("velho"), 5, "novo!");
    for (int round = 0; round < 15; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            // A signal that ends it as a kill does, later in each round.
            const itimerval soon{{0, 0}, {0, 1500 * (round + 1)}};
            ::setitimer(ITIMER_REAL, &soon, nullptr);
            for (unsigned i = 0;; ++i) {
                kept->Replace(3, Lines({{0, "TEXT"}, {5, "A"}, {1, i % 2 ? "velho" : "novo!"}}));
                kept->Save(path, true);
            }
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) << status;
        const std::string now = ReadBytes(path);
        ASSERT_TRUE(now == large || now == other) << "round " << round << ", " << now.size();
    }
}

TEST_F(Save, StandardOutput) {
    const std::string out = (folder / "out").string();
    const int end = InChild([&] {
        if (!::freopen(out.c_str(), "w", stdout)) return 2;
        store->Save("-", false, [&](const std::string& temporary) {
            if (ReadBytes(temporary) != changed) throw Error("not what is saved");
        });
        return 0;
    });
    EXPECT_EQ(end, 0);
    EXPECT_EQ(ReadBytes(out), changed);
    const int full = InChild([&] {
        if (!::freopen("/dev/full", "w", stdout)) return 2;
        try {
            store->Save("-");
        } catch (const Error&) {
            return 0;
        }
        return 1;
    });
    EXPECT_EQ(full, 0);
}

TEST_F(Save, LargeFilesAreWrittenInManyVectors) {
    std::string large = "0\nSECTION\n2\nENTITIES\n";
    while (large.size() < 12'000'000)
        large += "0\nTEXT\n8\nLAYER\n999\n" + std::string(2000, 'c') + "\n1\nvelho\n";
    WriteBytes(path, large + "0\nENDSEC\n0\nEOF\n");
    const auto big = Store::Read(path);
    for (RecordIndex i = 1; i + 2 < big->FileCount(); i += 2)
        big->Replace(i, Lines({{0, "TEXT"}, {1, std::to_string(i).c_str()}}));
    big->Save(path);
    EXPECT_TRUE(ReadBytes(path) == big->ToBytes());
}

}  // namespace
