// A display list that threads have built in parts is the one that a single one builds.
#include <sstream>

#include "apps/painter/ItemPaths.h"
#include "tests/painter/Support.h"

namespace {

const std::string kTables =
    "0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n70 0\n73 2\n40 3.0\n49 2.0\n49 -1.0\n"
    "0 LTYPE\n2 DOTTED\n70 0\n73 2\n40 1.5\n49 0.5\n49 -1.0\n0 ENDTAB\n"
    "0 TABLE\n2 STYLE\n0 STYLE\n2 SERIF\n3 times.ttf\n0 STYLE\n2 NARROW\n3 arialn.ttf\n0 ENDTAB\n";

const std::vector<std::string> kEntities = {
    "0 LINE\n8 A\n6 DASHED\n62 3\n10 0\n20 0\n11 9\n21 4\n",
    "0 TEXT\n8 A\n7 NARROW\n62 4\n10 1\n20 1\n40 2.5\n1 -K%d\n",
    "0 CIRCLE\n8 A\n62 5\n10 3\n20 3\n40 2\n",
    "0 TEXT\n8 A\n7 SERIF\n10 2\n20 5\n40 3\n1 motor\n",
    "0 MTEXT\n8 A\n62 6\n10 4\n20 4\n40 2\n1 {\\fCourier New;feeder}\n",
    "0 LINE\n8 A\n6 DOTTED\n62 2\n10 5\n20 0\n11 0\n21 5\n",
    "0 SOLID\n8 A\n62 1\n10 0\n20 0\n11 2\n21 0\n12 0\n22 2\n",
    "0 LWPOLYLINE\n8 A\n62 30\n90 2\n43 0.5\n10 0\n20 0\n10 7\n20 7\n",
};

// All that is painted of an item, without the numbers that it goes by.
std::string Told(const painter::DisplayList& list, const painter::ListPart& part,
                 const painter::Item& item) {
    std::ostringstream told;
    told << int(item.kind) << " colour " << list.colours.at(item.colour) << " width " << item.width
         << " dash";
    for (const double length : list.dashes.at(item.dash)) told << ' ' << length;
    if (item.kind == painter::ItemKind::Text) {
        const painter::TextItem& text = part.texts.at(item.first);
        told << ' '
             << QString::fromStdU16String(std::u16string(part.CharactersOf(text))).toStdString()
             << ' ' << list.fonts->At(text.font).Drawn().family().toStdString() << ' '
             << text.placement.dx << ' ' << text.placement.dy;
    }
    for (uint32_t i = 0; i < item.count; ++i) {
        const QPointF point = part.points.at(item.first + i);
        told << " (" << point.x() << ' ' << point.y() << ')';
    }
    const bool hasVerbs = item.kind == painter::ItemKind::Curve ||
                          item.kind == painter::ItemKind::Fill ||
                          item.kind == painter::ItemKind::Wide;
    if (hasVerbs) told << ' ' << painter::PathOf(part, item, {}).elementCount();
    return told.str();
}

}  // namespace

TEST(Parts, AreTheWholeInItsOrder) {
    constexpr size_t kCount = 90000;
    std::vector<std::string> expected;
    for (const std::string& entity : kEntities) {
        const painter::DisplayList one = ListOf(Drawing(entity, {}, kTables));
        ASSERT_EQ(one.ItemCount(), 1u) << entity;
        expected.push_back(Told(one, OnlyPart(one), OnlyPart(one).items[0]));
    }
    std::string entities;
    std::vector<size_t> kinds;
    for (size_t i = 0; i < kCount; ++i) {
        // Other kinds come first in other parts, so that the numbers differ.
        kinds.push_back((i / 10000 * 3 + i * 5) % kEntities.size());
        entities += kEntities[kinds.back()];
    }
    const painter::DisplayList list = ListOf(Drawing(entities, {}, kTables));
    ASSERT_EQ(list.ItemCount(), kCount);
    size_t number = 0;
    for (const painter::ListPart& part : list.parts) {
        for (size_t i = 0; i < part.items.size(); ++i, ++number) {
            ASSERT_EQ(Told(list, part, part.items[i]), expected[kinds[number]]) << number;
            ASSERT_TRUE(part.runs[i / painter::ListPart::kRun].Meets(part.items[i].bounds));
        }
    }
}
