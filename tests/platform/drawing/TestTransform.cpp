// Entities moved, turned, scaled and mirrored.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbEntity.h"
#include "platform/drawing/DbHandle.h"
#include "tests/platform/drawing/DrawingBuilder.h"

namespace {

using namespace drawing_test;
using M = OdGeMatrix3d;

const M kMove = M::translation({10, 20, 30});
const M kTurn = M::rotation(std::acos(-1.0) / 2);  // x to y, y to -x
const M kDouble = M::scaling(2, 2, 2);
const M kMirror = M::scaling(-1, 1, 1);
const M kWide = M::scaling(3, 1, 1);

Parts withEntity(const std::string& type, const std::string& groups, const std::string& more = "") {
    Parts parts;
    parts.entities =
        "0 " + type + "\n5 40\n330 1F\n100 AcDbEntity\n8 0\n100 AcDb\n" + groups + more;
    return parts;
}

// Some numbers of a record: code, value.
struct Number {
    int code;
    double value;
};

struct Case {
    const char* name;
    std::string type, groups;
    M matrix;
    std::vector<Number> expected;  // the groups of these codes, in order
};

class Transform : public testing::TestWithParam<Case> {};

void expectNumbers(OdDbDatabase& drawing, const char16_t* handle,
                   const std::vector<Number>& expected) {
    const dxf::Store& store = drawing.store();
    const dxf::RecordIndex record = store.FindHandle(OdDbHandle(handle));
    size_t next = 0;
    auto reader = store.Groups(record);
    for (dxf::Group group; reader.Next(group) && next < expected.size();) {
        if (group.code != expected[next].code) continue;
        EXPECT_NEAR(group.AsDouble(), expected[next].value, 1e-9) << group.code;
        ++next;
    }
    EXPECT_EQ(next, expected.size()) << store.Bytes(record);
}

TEST_P(Transform, PutsEveryNumberWhereItBelongs) {
    const Case& c = GetParam();
    for (const bool binary : {false, true}) {
        const std::string lines = Lines(withEntity(c.type, c.groups));
        const OdDbDatabasePtr drawing = OpenBytes(binary ? Binary(lines) : Ascii(lines));
        At<OdDbEntity>(*drawing, u"40", OdDb::kForWrite)->transformBy(c.matrix);
        expectNumbers(*drawing, u"40", c.expected);
        const OdDbDatabasePtr again = Reopened(*drawing);
        expectNumbers(*again, u"40", c.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Entities, Transform,
    testing::Values(
        Case{"LineKeepsWhatItLacks",
             "LINE",
             "10 1.0\n20 2.0\n11 3.0\n21 4.0\n31 5.0\n",
             kMove,
             {{10, 11}, {20, 22}, {30, 30}, {11, 13}, {21, 24}, {31, 35}}},
        Case{"ArcTurned",
             "ARC",
             "10 1.0\n20 0.0\n30 0.0\n40 2.0\n50 10.0\n51 100.0\n",
             kTurn* kDouble,
             {{10, 0}, {20, 2}, {40, 4}, {50, 100}, {51, 190}}},
        // On the back of its plane the arc keeps its sense.
        Case{"ArcMirrored",
             "ARC",
             "10 1.0\n20 0.0\n30 0.0\n40 2.0\n50 10.0\n51 100.0\n",
             kMirror,
             {{210, 0}, {220, 0}, {230, -1}, {10, 1}, {20, 0}, {50, 10}, {51, 100}}},
        Case{"CircleOnTheBack",
             "CIRCLE",
             "10 1.0\n20 2.0\n30 3.0\n40 2.0\n210 0.0\n220 0.0\n230 -1.0\n",
             kMove,
             {{10, -9}, {20, 22}, {30, -27}, {230, -1}}},
        Case{"Ellipse",
             "ELLIPSE",
             "10 0.0\n20 0.0\n30 0.0\n11 2.0\n21 0.0\n31 0.0\n40 0.5\n41 1.0\n",
             kMove* kTurn,
             {{10, 10}, {20, 20}, {11, 0}, {21, 2}, {40, 0.5}, {41, 1}}},
        Case{"Polyline",
             "LWPOLYLINE",
             "90 2\n70 0\n43 1.0\n10 1.0\n20 2.0\n42 0.5\n10 3.0\n20 4.0\n",
             kMove* kDouble,
             {{43, 2}, {38, 30}, {10, 12}, {20, 24}, {42, 0.5}, {10, 16}, {20, 28}}},
        Case{"TextTurnedAndAligned",
             "TEXT",
             "10 1.0\n20 0.0\n30 0.0\n40 2.0\n1 x\n50 30.0\n72 1\n11 2.0\n21 0.0\n31 0.0\n",
             kTurn* kDouble,
             {{10, 0}, {20, 2}, {40, 4}, {50, 120}, {11, 0}, {21, 4}}},
        Case{"TextMadeWide",
             "TEXT",
             "10 1.0\n20 1.0\n30 0.0\n40 2.0\n1 x\n",
             kWide,
             {{41, 3}, {10, 3}, {20, 1}, {40, 2}}},
        Case{"MTextWithoutAnAngle",
             "MTEXT",
             "10 1.0\n20 0.0\n30 0.0\n40 2.0\n41 9.0\n1 x\n",
             kTurn* kDouble,
             {{50, 90}, {10, 0}, {20, 2}, {40, 4}, {41, 18}}},
        Case{"MTextWithADirection",
             "MTEXT",
             "10 1.0\n20 0.0\n30 0.0\n40 2.0\n1 x\n11 1.0\n21 0.0\n31 0.0\n",
             kTurn* kDouble,
             {{10, 0}, {20, 2}, {11, 0}, {21, 1}}},
        Case{"ReferenceMirrored",
             "INSERT",
             "2 B\n10 1.0\n20 2.0\n30 0.0\n41 2.0\n42 3.0\n50 90.0\n",
             kMirror,
             {{10, -1}, {20, 2}, {41, -2}, {42, 3}, {50, 270}}},
        Case{"Hatch",
             "HATCH",
             "10 0.0\n20 0.0\n30 0.0\n210 0.0\n220 0.0\n230 1.0\n2 ANSI31\n70 0\n71 0\n91 2\n"
             "92 2\n72 0\n73 1\n93 1\n10 1.0\n20 2.0\n97 0\n92 0\n93 1\n72 2\n10 3.0\n20 4.0\n"
             "40 1.0\n50 0.0\n51 360.0\n73 1\n97 0\n75 0\n76 1\n52 45.0\n41 1.0\n77 0\n78 1\n"
             "53 45.0\n43 0.0\n44 0.0\n45 1.0\n46 0.0\n79 0\n98 1\n10 5.0\n20 6.0\n",
             kTurn* kDouble,
             {{10, 0},
              {10, -4},
              {20, 2},
              {10, -8},
              {20, 6},
              {40, 2},
              {50, 90},
              {51, 450},
              {52, 135},
              {41, 2},
              {53, 135},
              {45, 0},
              {46, 2},
              {10, -12},
              {20, 10}}},
        Case{"ImageVectors",
             "IMAGE",
             "10 1.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n12 0.0\n22 1.0\n32 0.0\n",
             kMove* kDouble,
             {{10, 12}, {20, 20}, {11, 2}, {21, 0}, {12, 0}, {22, 2}}}),
    [](const auto& info) { return info.param.name; });

TEST(TransformEntity, VerticesAndAttributesGoWithTheirHead) {
    const OdDbDatabasePtr drawing = Open(withEntity(
        "POLYLINE", "66 1\n10 0.0\n20 0.0\n30 5.0\n70 0\n",
        "0 VERTEX\n5 41\n330 40\n8 0\n10 1.0\n20 2.0\n30 5.0\n0 SEQEND\n5 42\n330 40\n8 0\n"
        "0 INSERT\n5 50\n330 1F\n8 0\n66 1\n2 B\n10 0.0\n20 0.0\n30 0.0\n"
        "0 ATTRIB\n5 51\n330 50\n8 0\n10 1.0\n20 2.0\n30 0.0\n40 1.0\n1 x\n2 T\n70 0\n"
        "0 SEQEND\n5 52\n330 50\n8 0\n"));
    At<OdDbEntity>(*drawing, u"40", OdDb::kForWrite)->transformBy(kMove);
    At<OdDbEntity>(*drawing, u"50", OdDb::kForWrite)->transformBy(kMove);
    expectNumbers(*drawing, u"40", {{10, 0}, {20, 0}, {30, 35}});
    expectNumbers(*drawing, u"41", {{10, 11}, {20, 22}, {30, 35}});
    expectNumbers(*drawing, u"50", {{10, 10}, {20, 20}, {30, 30}});
    expectNumbers(*drawing, u"51", {{10, 11}, {20, 22}, {30, 30}});
}

TEST(TransformEntity, WhatCannotBeDoneRaisesAndChangesNothing) {
    const OdDbDatabasePtr drawing = Open(
        withEntity("CIRCLE", "10 1.0\n20 1.0\n40 1.0\n", "0 3DSOLID\n5 41\n330 1F\n8 0\n1 x\n"));
    const auto transform = [&](const char16_t* handle, const M& matrix) {
        const auto entity = At<OdDbEntity>(*drawing, handle, OdDb::kForWrite);
        return Raised([&] { entity->transformBy(matrix); });
    };
    EXPECT_EQ(transform(u"40", kWide), eCannotScaleNonUniformly);
    EXPECT_EQ(transform(u"41", kMove), eNotApplicable);
    EXPECT_EQ(transform(u"41", M()), eOk);
    EXPECT_FALSE(drawing->isModified());
    EXPECT_THROW(At<OdDbEntity>(*drawing, u"40")->transformBy(kMove), OdError_NotOpenForWrite);
}

// A dimension takes its picture along, and the two are cloned and erased together.
TEST(TransformEntity, ThePictureOfADimensionIsItsOwn) {
    Parts parts;
    parts.records =
        "0 BLOCK_RECORD\n5 30\n330 1\n100 AcDbSymbolTableRecord\n"
        "100 AcDbBlockTableRecord\n2 *D1\n";
    parts.blocks =
        "0 BLOCK\n5 31\n330 30\n8 0\n2 *D1\n70 1\n10 0.0\n20 0.0\n"
        "0 LINE\n5 32\n330 30\n8 0\n10 1.0\n20 0.0\n30 0.0\n11 2.0\n21 0.0\n31 0.0\n"
        "0 ENDBLK\n5 33\n330 30\n8 0\n";
    parts.entities =
        "0 DIMENSION\n5 40\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbDimension\n2 *D1\n"
        "10 1.0\n20 0.0\n30 0.0\n11 3.0\n21 0.0\n31 0.0\n70 0\n";
    const OdDbDatabasePtr drawing = Open(parts), target = Open({});
    OdDbBlockTableRecordPtr block = target->insert(u"NEW", drawing).openObject();
    block->newIterator()->entity(OdDb::kForWrite)->transformBy(kMove);
    EXPECT_NE(target->toBytes().find(Ascii("10 11.0\n20 20.0\n30 30.0\n11 12.0\n")),
              std::string::npos);
    EXPECT_FALSE(drawing->isModified());
    At<OdDbEntity>(*drawing, u"40", OdDb::kForWrite)->erase();
    EXPECT_EQ(drawing->toBytes().find("*D1"), std::string::npos);
}

}  // namespace
