// Texts that two threads set at the same time.
#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <vector>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/DbXDataIterator.h"
#include "platform/drawing/SecondThread.h"
#include "tests/platform/drawing/DrawingBuilder.h"

using namespace drawing_test;

namespace {

constexpr uint64_t kFirst = 0x100, kCount = 10000;

std::string Hex(uint64_t handle) { return std::string(OdDbHandle(handle).ascii().narrowText()); }

struct Kind {
    const char* type;
    const char* ahead;  // of what the text was
    const char* behind;
};

// Texts, attributes, wires of two strings, texts of several lines that are one group or two, and
// texts without their group. Of the last three kinds two threads may not change one each.
constexpr Kind kKinds[] = {{"TEXT", "100 AcDbText\n40 2.5\n1 ", "7 S\n"},
                           {"ATTRIB", "100 AcDbText\n40 2.5\n1 ", "2 T\n70 0\n"},
                           {"LWPOLYLINE", "90 0\n1001 W\n1000 A", "1000 B\n"},
                           {"MTEXT", "100 AcDbMText\n40 2.5\n1 ", "7 S\n"},
                           {"MTEXT", "100 AcDbMText\n40 2.5\n3 ", "1 b\n"},
                           {"MTEXT", "100 AcDbMText\n40 2.5\n1 ", "1000 x\n3 b\n"},
                           {"TEXT", "100 AcDbText\n40 2.5\n7 ", ""}};

std::string Entities() {
    std::mt19937 random(7);
    std::string all;
    for (uint64_t handle = kFirst; handle < kFirst + kCount; ++handle) {
        const Kind& kind = kKinds[random() % std::size(kKinds)];
        const std::string old(random() % 40, 'a');
        all += std::string("0 ") + kind.type + "\n5 " + Hex(handle) + "\n330 1F\n8 0\n";
        all += kind.ahead + old + "\n" + kind.behind;
    }
    return all;
}

void SetTexts(OdDbDatabase& database, uint64_t handle) {
    const OdString now(u"now " + OdDbHandle(handle).ascii());
    const OdDbObjectPtr object =
        database.getOdDbObjectId(OdDbHandle(handle)).openObject(OdDb::kForWrite);
    if (OdDbMTextPtr mtext = OdDbMText::cast(object); !mtext.isNull()) {
        mtext->setContents(now);
    } else if (OdDbTextPtr text = OdDbText::cast(object); !text.isNull()) {
        text->setTextString(now);
    } else {
        for (int string = 1; string <= 2; ++string) {
            OdDbXDataIterator entry(*object, u"W");
            for (int i = 0; i < string; ++i) entry.next();
            entry.setString(now);
        }
    }
}

TEST(SecondThread, SetsTextsAsOneThreadDoes) {
    const Parts parts{.entities = Entities()};
    OdDbDatabasePtr alone = Open(parts), shared = Open(parts);
    std::vector<uint64_t> beside, rest;
    for (uint64_t handle = kFirst; handle < kFirst + kCount; ++handle) {
        const dxf::Store& store = shared->store();
        const bool can = store.CanChangeBeside(store.FindHandle(handle), u"now");
        (can ? beside : rest).push_back(handle);
        SetTexts(*alone, handle);
    }
    EXPECT_GT(beside.size(), kCount / 2);
    EXPECT_GT(rest.size(), kCount / 4);

    // Neighbours at the same time.
    const auto setEverySecond = [&](size_t first) {
        for (size_t i = first; i < beside.size(); i += 2) SetTexts(*shared, beside[i]);
    };
    std::thread second([&] {
        const OdDbSecondThread views;
        setEverySecond(1);
    });
    setEverySecond(0);
    second.join();
    for (const uint64_t handle : rest) SetTexts(*shared, handle);
    EXPECT_EQ(shared->toBytes(), alone->toBytes());
}

}  // namespace
