// A display list that threads have built in parts is the one that a single one builds, and a
// picture that they have painted in bands the one that a single one paints.
#include <random>
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

TEST(Bands, AreTheWholePicture) {
    std::string block = "0 BLOCK\n8 0\n2 B\n10 0\n20 0\n";
    for (const std::string& entity : kEntities) block += entity;
    std::string inserts;
    std::mt19937 random(7);
    for (int i = 0; i < 9000; ++i) {
        const auto any = [&](int most) { return std::to_string(random() % unsigned(most)); };
        inserts += "0 INSERT\n8 A\n2 B\n10 " + any(1500) + "\n20 " + any(1000) + "\n50 " +
                   any(360) + "\n41 " + any(i % 100 ? 2 : 90) + ".5\n42 " + any(i % 100 ? 2 : 90) +
                   ".5\n";
    }
    const painter::DisplayList list = ListOf(Drawing(inserts, block + "0 ENDBLK\n8 0\n", kTables));
    ASSERT_GT(list.ItemCount(), 60000u) << "many enough for several threads";
    for (const double zoom : {0.3, 1.0, 4.0}) {
        SCOPED_TRACE(zoom);
        QImage whole(600, 401, QImage::Format_RGB32);
        whole.fill(Qt::white);
        QImage bands = whole;
        const QTransform map = painter::FitTransform(list.extents, QRectF(whole.rect())) *
                               QTransform(zoom, 0, 0, zoom, 300 * (1 - zoom), 200 * (1 - zoom));
        QPainter painter(&whole);
        painter::Paint(painter, list, map, QRectF(whole.rect()).adjusted(-2, -2, 2, 2));
        painter.end();
        painter::PaintImage(bands, list, map);
        int ink = 0, other = 0;
        for (int y = 0; y < whole.height(); ++y) {
            for (int x = 0; x < whole.width(); ++x) {
                ink += whole.pixel(x, y) != 0xFFFFFFFF;
                const QColor a = whole.pixelColor(x, y), b = bands.pixelColor(x, y);
                other += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                             std::abs(a.blue() - b.blue()) >
                         16;
            }
        }
        EXPECT_GT(ink, 5000);
        EXPECT_LT(other, 20) << "a bar that is cut begins at another pixel";
    }
}
