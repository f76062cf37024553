// Blocks placed in blocks, and what layers, colours and attributes make of them.
#include <random>

#include "tests/painter/Support.h"

namespace {

using painter::DisplayList;

std::string Block(const std::string& name, const std::string& contents) {
    return "0 BLOCK\n8 0\n2 " + name + "\n10 0\n20 0\n" + contents + "0 ENDBLK\n8 0\n";
}
std::string Insert(const std::string& name, const std::string& groups = {}) {
    return "0 INSERT\n5 77\n8 P\n2 " + name + "\n" + groups;
}
const std::string kLine = "0 LINE\n5 99\n8 0\n10 1\n20 0\n11 3\n21 1\n";
const std::string kLayers =
    "0 TABLE\n2 LAYER\n0 LAYER\n2 P\n62 3\n70 0\n0 LAYER\n2 OFF\n62 -1\n70 0\n"
    "0 LAYER\n2 FROZEN\n62 1\n70 1\n0 ENDTAB\n";

void ExpectBounds(const painter::Bounds& bounds, double left, double bottom, double right,
                  double top) {
    EXPECT_NEAR(bounds.left, left, 1e-9);
    EXPECT_NEAR(bounds.bottom, bottom, 1e-9);
    EXPECT_NEAR(bounds.right, right, 1e-9);
    EXPECT_NEAR(bounds.top, top, 1e-9);
}

TEST(Blocks, AreScaledTurnedMirroredAndNested) {
    const std::string blocks = Block("A", kLine) + Block("B", Insert("a", "10 10\n41 2\n42 2\n"));
    ExpectBounds(ListOf(Drawing(Insert("B"), blocks)).extents, 12, 0, 16, 2);
    ExpectBounds(ListOf(Drawing(Insert("B", "50 90\n"), blocks)).extents, -2, 12, 0, 16);
    ExpectBounds(ListOf(Drawing(Insert("B", "41 -1\n"), blocks)).extents, -16, 0, -12, 2);
    ExpectBounds(ListOf(Drawing(Insert("B", "10 1\n230 -1\n"), blocks)).extents, -17, 0, -13, 2);
}

TEST(Blocks, RowsAndColumnsRepeatAttributesToo) {
    const std::string attribute = "0 ATTRIB\n8 P\n10 5\n20 5\n40 1\n1 N\n2 TAG\n70 0\n";
    const DisplayList list = ListOf(
        Drawing(Insert("A", "66 1\n70 3\n71 2\n44 10\n45 20\n") + attribute + "0 SEQEND\n8 P\n",
                Block("A", kLine)));
    EXPECT_EQ(list.ItemCount(), 12U);
    ExpectBounds(OnlyPart(list).items[5].bounds, 21, 20, 23, 21);
}

TEST(Blocks, RecursionIsCut) {
    const std::string blocks = Block("A", kLine + Insert("B")) + Block("B", kLine + Insert("A"));
    EXPECT_EQ(ListOf(Drawing(Insert("A"), blocks)).ItemCount(), 2U);
}

TEST(Blocks, RepetitionWithoutEndIsCut) {
    std::string blocks = Block("B0", kLine);
    for (int i = 1; i < 12; ++i) {
        std::string contents;
        for (int n = 0; n < 10; ++n) contents += Insert("B" + std::to_string(i - 1));
        blocks += Block("B" + std::to_string(i), contents);
    }
    OdDbDatabasePtr drawing =
        OdDbDatabase::fromStore(dxf::Store::Parse(Drawing(Insert("B11"), blocks)));
    painter::BuildOptions options;
    options.limit = 10000;
    const auto list = painter::BuildDisplayList(*drawing, options);
    EXPECT_TRUE(list->cut);
    EXPECT_LE(list->ItemCount(), 10000U);
    EXPECT_GE(list->ItemCount(), 1000U);
}

TEST(Blocks, InheritLayerAndColour) {
    const std::string contents = kLine +
                                 "62 0\n0 LINE\n8 0\n11 1\n0 LINE\n8 OFF\n11 1\n"
                                 "0 LINE\n8 P\n420 1193046\n11 1\n";
    const DisplayList list = ListOf(Drawing(Insert("A", "62 5\n"), Block("A", contents), kLayers));
    ASSERT_EQ(list.ItemCount(), 3U);
    EXPECT_EQ(list.colours[OnlyPart(list).items[0].colour], 0xFF0000FFU);  // by block
    EXPECT_EQ(list.colours[OnlyPart(list).items[1].colour],
              0xFF00FF00U);  // by layer: that of the reference
    EXPECT_EQ(list.colours[OnlyPart(list).items[2].colour], 0xFF123456U);
    EXPECT_EQ(OnlyPart(list).items[0].handle, 0x77U);
}

TEST(Blocks, HiddenThingsAreNotPainted) {
    const std::string line = " LINE\n11 1\n8 ";
    EXPECT_EQ(ListOf(Drawing("0" + line + "OFF\n0" + line + "FROZEN\n0" + line + "P\n60 1\n", {},
                             kLayers))
                  .ItemCount(),
              0U);
    const std::string dimension = "0 DIMENSION\n8 OFF\n2 A\n";
    const std::string other = Block("A", "0 LINE\n8 P\n11 1\n");
    EXPECT_EQ(ListOf(Drawing(dimension, other, kLayers)).ItemCount(), 0U);
    EXPECT_EQ(ListOf(Drawing("0 INSERT\n8 OFF\n2 A\n", other, kLayers)).ItemCount(), 1U);
    const std::string attribute = "0 ATTRIB\n8 P\n40 1\n1 N\n2 TAG\n70 1\n0 SEQEND\n8 P\n";
    const std::string definition = "0 ATTDEF\n8 0\n40 1\n1 N\n2 TAG\n70 0\n";
    EXPECT_EQ(
        ListOf(Drawing(Insert("A", "66 1\n") + attribute, Block("A", definition))).ItemCount(), 0U);
}

TEST(DisplayList, KnowsTheEntityAtAPoint) {
    const DisplayList list = ListOf(
        Drawing("0 LINE\n5 A1\n8 0\n10 0\n20 0\n11 100\n21 0\n"
                "0 CIRCLE\n5 A2\n8 0\n10 50\n20 50\n40 10\n"
                "0 SOLID\n5 A3\n8 0\n10 80\n20 80\n11 90\n21 80\n12 80\n22 90\n13 90\n23 90\n"
                "0 TEXT\n5 A4\n8 0\n10 0\n20 80\n40 5\n1 HHHH\n"));
    EXPECT_EQ(EntityAt(list, {30, 0.5}, 1), 0xA1U);
    EXPECT_EQ(EntityAt(list, {30, 2}, 1), 0U);
    EXPECT_EQ(EntityAt(list, {60.5, 50}, 1), 0xA2U);
    EXPECT_EQ(EntityAt(list, {50, 50}, 1), 0U);
    EXPECT_EQ(EntityAt(list, {85, 85}, 0.1), 0xA3U);
    EXPECT_EQ(EntityAt(list, {10, 82}, 0.1), 0xA4U);
}

TEST(DisplayList, BuildingCanBeEnded) {
    OdDbDatabasePtr drawing = OdDbDatabase::readFile(Example("control_panel.dxf").toStdString());
    painter::BuildOptions options;
    options.progress = [](double) { return false; };
    EXPECT_FALSE(painter::BuildDisplayList(*drawing, options));
}

// Values of a drawing exchanged for others: whatever comes of it can be built and painted.
TEST(DisplayList, OutlivesDamage) {
    const char* const values[] = {"nan",    "-1",  "1e308", "99999999", "",
                                  "1e-300", "\\S", "*U1",   "7"};
    std::mt19937 random(20240318);
    size_t painted = 0;
    for (const QString& path : Drawings()) {
        std::unique_ptr<dxf::Store> whole;
        try {
            whole = dxf::Store::Read(path.toStdString());
        } catch (const dxf::Error&) {
            continue;
        }
        const std::string original(whole->Original());
        if (whole->FileFormat() != dxf::Format::Ascii || original.size() > 300000) continue;
        SCOPED_TRACE(path.toStdString());
        std::string damaged;
        bool value = false;
        for (size_t begin = 0; begin < original.size(); value = !value) {
            const size_t end = std::min(original.find('\n', begin), original.size());
            const bool exchange = value && random() % 20 == 0 &&
                                  std::isdigit(static_cast<unsigned char>(original[begin]));
            damaged += exchange ? values[random() % std::size(values)]
                                : original.substr(begin, end - begin);
            damaged += '\n';
            begin = end + 1;
        }
        try {
            const DisplayList list = ListOf(damaged);
            Rendered(list, {200, 200});
            EntityAt(list, {0, 0}, 1);
            painted += list.ItemCount() > 0;
        } catch (const dxf::Error&) {
        }
    }
    EXPECT_GE(painted, 4U);
}

}  // namespace
