// Edits against a model that is a plain list of records.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>

#include "tests/platform/dxf/Samples.h"

namespace {

using namespace dxf;
using namespace samples;

// The drawing as a list of records in their order, and what a save must write.
struct Model {
    struct Entry {
        RecordIndex index;
        std::string bytes;
        bool erased;
    };
    std::string before, behind;
    std::vector<Entry> entries;

    explicit Model(const Store& store) {
        const std::string_view all = store.Original();
        before = all.substr(0, store.At(0).offset);
        size_t size = before.size();
        for (RecordIndex i = 0; i < store.FileCount(); ++i) {
            entries.push_back({i, std::string(store.Bytes(i)), false});
            size += entries.back().bytes.size();
        }
        behind = all.substr(size);
    }

    std::string Bytes() const {
        std::string all = before;
        for (const Entry& entry : entries)
            if (!entry.erased) all += entry.bytes;
        return all + behind;
    }
};

std::string RandomRecord(const Store& store, RecordIndex place, std::mt19937& random) {
    GroupWriter writer = store.NewWriter(place);
    writer.String(0, random() % 2 ? "TEXT" : "LINE").Handle(5, random() % 100 + 1);
    if (random() % 2) writer.Int(67, 1);
    if (random() % 2) writer.String(8, "L" + std::to_string(random() % 5));
    if (random() % 2) writer.Double(10, random() / 3.0);
    if (random() % 2) writer.String(1, "text" + std::to_string(random()));
    if (random() % 3 == 0) writer.String(1001, "VRN").Int(1071, 70000);
    return writer.Take();
}

void ExpectOrder(const Store& store, const Model& model) {
    RecordIndex at = store.First(), previous = kNoRecord;
    for (const Model::Entry& entry : model.entries) {
        ASSERT_EQ(at, entry.index);
        ASSERT_EQ(store.Previous(at), previous);
        ASSERT_EQ(store.Bytes(at), entry.bytes);
        ASSERT_EQ(bool(store.At(at).flags & kErased), entry.erased);
        previous = at;
        at = store.Next(at);
    }
    ASSERT_EQ(at, kNoRecord);
}

// The hints of edited records are those that indexing the saved file gives.
void ExpectHints(const Store& store) {
    const auto fresh = Store::Parse(store.ToBytes());
    RecordIndex there = 0;
    for (auto i = store.First(); i != kNoRecord; i = store.Next(i)) {
        const Record& here = store.At(i);
        if (here.flags & kErased) continue;
        ASSERT_LT(there, fresh->Count());
        const Record& other = fresh->At(there++);
        ASSERT_EQ(here.type, other.type);
        ASSERT_EQ(here.section, other.section);
        ASSERT_EQ(here.handle, other.handle);
        ASSERT_EQ(here.owner, other.owner);
        ASSERT_EQ(here.length, other.length);
        ASSERT_EQ(here.text, other.text);
        ASSERT_EQ(here.xdata, other.xdata);
        ASSERT_EQ(store.LayerName(here.layer), fresh->LayerName(other.layer));
        ASSERT_EQ(here.flags & kPaperSpace, other.flags & kPaperSpace);
    }
    ASSERT_EQ(there, fresh->Count());
}

// Any string of the record but its type.
std::optional<Group> RandomString(const Store& store, RecordIndex index, std::mt19937& random) {
    std::vector<Group> strings;
    GroupReader groups = store.Groups(index);
    for (Group group; groups.Next(group);)
        if (group.code != 0 && group.IsString()) strings.push_back(group);
    if (strings.empty()) return std::nullopt;
    return strings[random() % strings.size()];
}

void EditOnce(Store& store, Model& model, std::mt19937& random) {
    // The first and the last stay, so that the file remains a drawing with an end.
    const size_t at = 1 + random() % (model.entries.size() - 2);
    Model::Entry& entry = model.entries[at];
    switch (random() % 6) {
        case 0:
            if (store.At(entry.index).section != Section::Entities || entry.index < 3) break;
            if (store.At(entry.index).type == RecordType::Section ||
                store.At(entry.index).type == RecordType::Endsec)
                break;
            entry.bytes = RandomRecord(store, entry.index, random);
            store.Replace(entry.index, entry.bytes);
            break;
        case 1: {
            if (store.At(entry.index).section != Section::Entities ||
                store.At(entry.index).type == RecordType::Endsec)
                break;
            std::string bytes = RandomRecord(store, entry.index, random);
            const RecordIndex inserted = store.InsertAfter(entry.index, bytes);
            model.entries.insert(model.entries.begin() + ptrdiff_t(at) + 1,
                                 {inserted, std::move(bytes), false});
            break;
        }
        case 2:
        case 3: {
            if (store.At(entry.index).section != Section::Entities) break;
            const auto group = RandomString(store, entry.index, random);
            if (!group || store.At(entry.index).type == RecordType::Section) break;
            const std::string value(random() % 12, char('0' + random() % 10));
            entry.bytes.replace(size_t(group->value.data() - store.Bytes(entry.index).data()),
                                group->value.size(), value);
            store.ReplaceValue(entry.index, *group, value);
            break;
        }
        default:
            if (store.At(entry.index).type == RecordType::Section ||
                store.At(entry.index).type == RecordType::Endsec)
                break;
            entry.erased = random() % 2;
            store.SetErased(entry.index, entry.erased);
    }
}

// Rounds of edits, each undone and redone at random. What an undo leaves of inserted records is
// entries marked as erased, as in the store.
void RunRounds(const std::string& bytes, unsigned seed) {
    std::mt19937 random(seed);
    const auto store = Store::Parse(bytes);
    Model model(*store);
    for (int round = 0; round < 12; ++round) {
        const std::string before = store->ToBytes();
        store->BeginRecording();
        for (int edit = 0; edit < 15; ++edit) EditOnce(*store, model, random);
        std::vector<RecordState> undo = store->EndRecording();
        const std::string after = store->ToBytes();
        ASSERT_EQ(after, model.Bytes());
        ExpectOrder(*store, model);
        ExpectHints(*store);
        if (random() % 2) {
            std::vector<RecordState> redo = store->Restore(undo);
            ASSERT_EQ(store->ToBytes(), before);
            store->Restore(redo);
            ASSERT_EQ(store->ToBytes(), after);
            ExpectOrder(*store, model);
        }
    }
}

TEST(Edits, RandomOnesAgreeWithAPlainList) {
    for (const auto& path : DrawingsIn(FixtureFolder()))
        for (unsigned seed = 1; seed <= 10; ++seed) {
            SCOPED_TRACE(path.filename().string() + ", seed " + std::to_string(seed));
            RunRounds(ReadBytes(path), seed);
            if (HasFatalFailure()) return;
        }
}

TEST(Edits, RecordsThatAreNoneAreRefused) {
    const auto store = Store::Parse(Drawing({{0, "TEXT"}, {5, "A"}, {1, "x"}}));
    const RecordIndex text = Find(*store, "TEXT");
    const std::string before = store->ToBytes();
    for (const char* bad : {"", "1\nx\n", "0\nTEXT\n1\n", "0\nTEXT\n0\nTEXT\n"}) {
        EXPECT_THROW(store->Replace(text, bad), Error) << bad;
        EXPECT_THROW(store->InsertAfter(text, bad), Error) << bad;
    }
    EXPECT_THROW(store->NewWriter().String(1, "a\nb"), Error);
    GroupReader groups = store->Groups(text, store->At(text).text);
    Group group;
    ASSERT_TRUE(groups.Next(group));
    EXPECT_THROW(store->ReplaceValue(text, group, "a\nb"), Error);
    EXPECT_EQ(store->ToBytes(), before);
    EXPECT_FALSE(store->Modified());
}

TEST(Edits, AnInsertionBehindALastLineWithoutEndGetsOne) {
    const auto store = Store::Parse("0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF");
    store->InsertAfter(store->FileCount() - 1, "0\nX");
    EXPECT_EQ(store->ToBytes(), "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n0\nX\n");
    // Cut between the two bytes of the end; and what is taken back leaves none.
    const std::string cut = "0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\nENDSEC\r";
    const auto truncated = Store::Parse(cut);
    const RecordIndex added = truncated->InsertAfter(1, "0\r\nEOF\r\n");
    EXPECT_EQ(truncated->ToBytes(), cut + "\n0\r\nEOF\r\n");
    truncated->SetErased(added, true);
    EXPECT_EQ(truncated->ToBytes(), cut);
}

TEST(Edits, ModifiedFollowsTheLastSave) {
    const auto store = Store::Parse(Drawing({{0, "TEXT"}, {5, "A"}, {1, "x"}}));
    const RecordIndex text = Find(*store, "TEXT");
    store->BeginRecording();
    store->Replace(text, Lines({{0, "TEXT"}, {5, "A"}, {1, "y"}}));
    const RecordIndex added = store->InsertAfter(text, Lines({{0, "POINT"}, {5, "B"}}));
    const std::vector<RecordState> undo = store->EndRecording();
    EXPECT_TRUE(store->Modified());
    store->MarkSaved();
    EXPECT_FALSE(store->Modified());
    const std::vector<RecordState> redo = store->Restore(undo);
    EXPECT_TRUE(store->Modified());
    EXPECT_EQ(store->FindHandle(0xB), added);
    EXPECT_TRUE(store->At(added).flags & kErased);
    store->Restore(redo);
    EXPECT_FALSE(store->Modified()) << "it is as it was saved";
    store->MarkSaved();
    store->Replace(text, Lines({{0, "TEXT"}, {5, "A"}, {1, "x"}}));
    EXPECT_TRUE(store->Modified());
}

struct SeedCase {
    const char* header;
    const char* expected;  // the seed of the saved file; null for none
};

TEST(Edits, HandSeedFollowsNewHandlesThatAreWritten) {
    const SeedCase cases[] = {
        {"9\n$HANDSEED\n5\n100\n", "9\n$HANDSEED\n  5\n101\n"},  // good
        {"9\n$HANDSEED\n5\n2\n", "9\n$HANDSEED\n  5\n32\n"},     // too low
        {"", "  9\n$HANDSEED\n  5\n32\n"},                       // absent
    };
    for (const SeedCase& seed : cases) {
        const std::string file = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n" +
                                 std::string(seed.header) +
                                 "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nTEXT\n5\n0030\n0\nENDSEC\n"
                                 "0\nEOF\n";
        const auto store = Store::Parse(file);
        const RecordIndex text = store->FindHandle(0x30);
        store->NewHandle();
        EXPECT_EQ(store->ToBytes(), file) << "a handle that nobody bears changes nothing";
        store->BeginRecording();
        const auto again = Store::Parse(file);
        const uint64_t handle = again->NewHandle();
        again->InsertAfter(text, again->NewWriter().String(0, "POINT").Handle(5, handle).Take());
        EXPECT_NE(again->ToBytes().find(seed.expected), std::string::npos) << again->ToBytes();
    }
    const auto bare = Store::Parse("0\nSECTION\n2\nENTITIES\n0\nTEXT\n5\n7\n0\nENDSEC\n0\nEOF\n");
    const uint64_t handle = bare->NewHandle();
    EXPECT_EQ(handle, 8u);
    bare->InsertAfter(1, bare->NewWriter().String(0, "POINT").Handle(5, handle).Take());
    EXPECT_EQ(bare->ToBytes().find("$HANDSEED"), std::string::npos);
}

// Also when the index of the handles grows meanwhile.
TEST(Edits, AHandleThatIsTakenOverStillFindsItsFirstRecord) {
    const auto store =
        Store::Parse(Drawing({{0, "TEXT"}, {5, "A"}, {1, "a"}, {0, "TEXT"}, {5, "9"}, {1, "b"}}));
    const RecordIndex first = store->FindHandle(0xA), second = store->FindHandle(0x9);
    store->Replace(second, Lines({{0, "TEXT"}, {5, "A"}, {1, "b"}}));
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(store->FindHandle(0xA), first);
        const std::string handle = std::to_string(100 + i);
        store->InsertAfter(first, Lines({{0, "POINT"}, {5, handle.c_str()}}));
    }
}

TEST(Edits, MemoryHandlesAreFoundAndNeverWritten) {
    const auto store = Store::Parse(Drawing(
        {{0, "TEXT"}, {5, "30"}, {1, "a"}, {0, "TEXT"}, {5, "0030"}, {0, "TEXT"}, {1, "c"}}));
    const RecordIndex first = store->FindHandle(0x30), second = first + 1, third = first + 2;
    EXPECT_TRUE(store->At(second).flags & kDuplicateHandle);
    ASSERT_EQ(store->Findings().size(), 1u);
    const uint64_t a = store->NewHandle(), b = store->NewHandle();
    store->AssignMemoryHandle(second, a);
    store->AssignMemoryHandle(third, b);
    EXPECT_FALSE(store->Modified());
    store->Replace(third, Lines({{0, "TEXT"}, {1, "changed"}}));
    EXPECT_EQ(store->FindHandle(a), second);
    EXPECT_EQ(store->FindHandle(b), third);
    EXPECT_EQ(store->At(third).handle, b) << "kept over an edit";
    EXPECT_EQ(store->FindHandle(0x30), first);
    EXPECT_EQ(store->ToBytes().find("$HANDSEED"), std::string::npos);
}

}  // namespace
