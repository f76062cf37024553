// Where letters stand: alignments, stretching, format codes, wrapping.
#include "tests/painter/Support.h"

namespace {

using painter::Bounds;
using painter::DisplayList;

std::string OfText(const painter::DisplayList& list, size_t index) {
    const std::u16string characters(OnlyPart(list).CharactersOf(OnlyPart(list).texts.at(index)));
    return QString::fromStdU16String(characters).toStdString();
}

// The letters' box: from the baseline to the top of the capitals.
QRectF BoxOf(const DisplayList& list, size_t index = 0) {
    const painter::TextItem& text = OnlyPart(list).texts.at(index);
    const double cap = list.fonts->At(text.font).CapHeight();
    return text.placement.Transform().mapRect(QRectF(0, 0, double{text.advance}, cap));
}

DisplayList Text(const std::string& groups) {
    return ListOf(Drawing("0 TEXT\n8 0\n10 1\n20 2\n40 10\n1 HxH\n" + groups));
}

DisplayList MText(const std::string& contents, const std::string& groups = {}) {
    return ListOf(Drawing("0 MTEXT\n8 0\n10 0\n20 0\n40 10\n1 " + contents + "\n" + groups));
}

// Part of the box that lies left of and below the point 100, 50 that aligned texts refer to.
struct Alignment {
    int horizontal, vertical;
    double left, below;
};

TEST(Texts, StandAtTheirPoint) {
    const Alignment cases[] = {{1, 0, 0.5, 0}, {2, 0, 1, 0},     {4, 0, 0.5, 0.5},
                               {0, 2, 0, 0.5}, {1, 2, 0.5, 0.5}, {2, 2, 1, 0.5},
                               {0, 3, 0, 1},   {1, 3, 0.5, 1},   {2, 3, 1, 1}};
    for (const auto& [horizontal, vertical, left, below] : cases) {
        const QRectF box = BoxOf(Text("11 100\n21 50\n72 " + std::to_string(horizontal) + "\n73 " +
                                      std::to_string(vertical) + "\n"));
        SCOPED_TRACE(std::to_string(horizontal) + ", " + std::to_string(vertical));
        EXPECT_NEAR(box.height(), 10, 1e-6);
        EXPECT_NEAR(box.left(), 100 - left * box.width(), 1e-3);
        EXPECT_NEAR(box.top(), 50 - below * 10, 1e-3);
    }
    EXPECT_NEAR(BoxOf(Text("")).left(), 1, 1e-6);
    EXPECT_GT(BoxOf(Text("11 100\n21 50\n73 1\n")).top(), 51);  // above room for descenders
}

TEST(Texts, AreStretchedBetweenTwoPoints) {
    const QRectF aligned = BoxOf(Text("11 201\n21 2\n72 3\n"));
    EXPECT_NEAR(aligned.width(), 200, 1e-2);
    EXPECT_GT(aligned.height(), 50);
    const QRectF fitted = BoxOf(Text("11 201\n21 2\n72 5\n"));
    EXPECT_NEAR(fitted.width(), 200, 1e-2);
    EXPECT_NEAR(fitted.height(), 10, 1e-6);
    const QRectF turned = BoxOf(Text("11 1\n21 202\n72 5\n"));
    EXPECT_NEAR(turned.height(), 200, 1e-2);
}

TEST(Texts, AreTurnedMirroredAndNarrowed) {
    const QRectF plain = BoxOf(Text(""));
    EXPECT_NEAR(BoxOf(Text("41 0.5\n")).width(), plain.width() / 2, 1e-3);
    EXPECT_NEAR(BoxOf(Text("50 90\n")).height(), plain.width(), 1e-3);
    EXPECT_NEAR(BoxOf(Text("71 2\n")).right(), 1, 1e-3);
    EXPECT_NEAR(BoxOf(Text("71 4\n")).bottom(), 2, 1e-3);
    EXPECT_NEAR(BoxOf(Text("230 -1\n")).right(), -1, 1e-3);
    EXPECT_NEAR(BoxOf(Text("51 45\n")).width(), plain.width() + 10, 1e-2);
}

TEST(Texts, SignsAndLines) {
    const DisplayList list =
        ListOf(Drawing("0 TEXT\n8 0\n40 1\n1 %%uA%%u %%c5%%p1%%d%%%%%065%%q\n"));
    EXPECT_EQ(OfText(list, 0), "A \u00D85\u00B11\u00B0%A%%q");
    ASSERT_EQ(list.ItemCount(), 2U);  // the line below the A
    EXPECT_LT(OnlyPart(list).items[0].bounds.Width(), OnlyPart(list).items[1].bounds.Width() / 3);
}

TEST(MTexts, AreAttachedAtNinePoints) {
    for (int point = 1; point <= 9; ++point) {
        SCOPED_TRACE(point);
        const QRectF box = BoxOf(MText("HxH", "71 " + std::to_string(point) + "\n"));
        EXPECT_NEAR(box.left(), -box.width() * ((point - 1) % 3) / 2, 1e-3);
        EXPECT_NEAR(box.bottom(), 10.0 * ((point - 1) / 3) / 2, 1e-3);
    }
}

TEST(MTexts, WrapAtBlanksAndKeepLongWords) {
    const DisplayList list = MText("HH HH HHHHHHHHHHHHHHH HH", "41 50\n");
    ASSERT_EQ(OnlyPart(list).texts.size(), 3U);
    EXPECT_EQ(OfText(list, 0), "HH HH");
    EXPECT_EQ(OfText(list, 1), "HHHHHHHHHHHHHHH");
    EXPECT_NEAR(BoxOf(list, 1).top() - BoxOf(list, 0).top(), -10 * 5.0 / 3, 1e-6);
}

struct Codes {
    const char* raw;
    std::vector<const char*> texts;
};

TEST(MTexts, UnderstandTheirCodes) {
    const Codes cases[] = {
        {"a\\Pb", {"a", "b"}},
        {"a\\~b \\\\ \\{\\}", {"a\u00A0b \\ {}"}},
        {"{\\fArial|b1|i0|c0|p34;a} b", {"a", "b"}},
        {"\\H2x;a\\H5;b", {"a", "b"}},
        {"a{\\C1;b}c", {"a", "b", "c"}},
        {"x\\S1/2;y", {"x", "1", "2", "y"}},
        {"\\S1^2;", {"1", "2"}},
        {"\\A1;\\W0.8;\\Q15;\\T1.2;\\pxqc;a", {"a"}},
        {"%%c5 \\U+03BB", {"\u00D85 \u03BB"}},
        {"a\\Z;b", {"a\\Z;b"}},
        {"{{{a}", {"a"}},
        {"a}}}b\\", {"ab\\"}},
        {"\\S1/2", {"1", "2"}},
        {"\\H", {}},
    };
    for (const Codes& codes : cases) {
        SCOPED_TRACE(codes.raw);
        const DisplayList list = MText(codes.raw);
        ASSERT_EQ(OnlyPart(list).texts.size(), codes.texts.size());
        for (size_t i = 0; i < codes.texts.size(); ++i) EXPECT_EQ(OfText(list, i), codes.texts[i]);
    }
}

TEST(MTexts, HeightsColoursAndLines) {
    const DisplayList list = MText("\\H0.5x;a\\H3x;\\C1;b \\Lc d\\l");
    EXPECT_NEAR(BoxOf(list, 0).height(), 5, 1e-6);
    EXPECT_NEAR(BoxOf(list, 1).height(), 15, 1e-6);
    size_t lines = 0;
    for (const painter::Item& item : OnlyPart(list).items) {
        lines += item.kind == painter::ItemKind::Line;
        if (item.kind == painter::ItemKind::Text && item.first == 1) {
            EXPECT_EQ(list.colours[item.colour], 0xFFFF0000U);
        }
    }
    EXPECT_EQ(lines, 1U);
}

}  // namespace
