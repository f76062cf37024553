// Moving about in a drawing: whatever the way, the picture is the one that painting anew gives.
#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>
#include <random>

#include "apps/painter/ListBuilder.h"
#include "apps/painter/PagePainter.h"
#include "apps/ui/DrawingView.h"

namespace {

// Shared by a database that the list no longer needs.
std::shared_ptr<const painter::DisplayList> ListOf(const char* drawing) {
    OdDbDatabasePtr database =
        OdDbDatabase::readFile(std::string(KV_SOURCE_DIR "/examples/") + drawing);
    return std::make_shared<const painter::DisplayList>(
        std::move(*painter::BuildDisplayList(*database)));
}

class View : public testing::Test {
  protected:
    View() {
        view.resize(600, 400);
        view.Show(list, ui::DrawingView::Place::Fit);
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    // Once a picture that was stretched at first has been painted.
    QImage Shown() {
        view.grab();
        EXPECT_TRUE(QTest::qWaitFor([this] { return view.IsExact(); }));
        return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    // What painting the whole anew gives for the same place.
    QImage Expected() {
        ui::DrawingView fresh;
        QImage image(view.size(), QImage::Format_RGB32);
        const QColor background = view.palette().color(QPalette::Base);
        image.fill(background);
        QPainter painter(&image);
        painter::PaintOptions options;
        options.background = background;
        painter::Paint(painter, *list, view.Map(), image.rect(), options);
        return image;
    }

    // Pixels that differ by more than rounding at the edge of a strip.
    int Differing(const QImage& a, const QImage& b) {
        int count = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 48;
        return count;
    }

    void Drag(QPoint from, QPoint by, Qt::MouseButton button) {
        QTest::mousePress(&view, button, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + by, view.mapToGlobal(from + by), Qt::NoButton,
                         button, {});
        QCoreApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, button, {}, from + by);
    }

    void Wheel(QPoint at, int notches) {
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }

    std::shared_ptr<const painter::DisplayList> list = ListOf("control_panel.dxf");
    ui::DrawingView view;
};

}  // namespace

TEST_F(View, FitsAndStaysFittedUntilItIsMoved) {
    const auto inside = [&] {
        const painter::Bounds& all = list->extents;
        const QRectF shown =
            view.Map().mapRect(QRectF(all.left, all.bottom, all.Width(), all.Height()));
        return QRectF(view.rect()).contains(shown) && shown.width() > view.width() * 0.9;
    };
    EXPECT_TRUE(inside());
    view.resize(900, 300);
    EXPECT_TRUE(inside());
    Wheel({10, 10}, 3);
    view.resize(600, 400);
    EXPECT_FALSE(inside());
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_TRUE(inside());
}

TEST_F(View, TheWheelKeepsThePointUnderTheMouse) {
    for (const QPoint at : {QPoint(0, 0), QPoint(300, 200), QPoint(599, 17)}) {
        for (const int notches : {1, -2, 5}) {
            const QPointF world = view.Map().inverted().map(QPointF(at));
            Wheel(at, notches);
            const QPointF now = view.Map().map(world);
            EXPECT_NEAR(now.x(), at.x(), 1e-6);
            EXPECT_NEAR(now.y(), at.y(), 1e-6);
        }
    }
}

TEST_F(View, NeverLeavesTheScalesAtWhichItCanBeFoundAgain) {
    const double fit = view.Map().m11();
    Wheel({300, 200}, 300);
    EXPECT_LE(view.Map().m11(), fit * 1.001e6);
    Wheel({300, 200}, -1000);
    EXPECT_GE(view.Map().m11(), fit * 0.0099);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_DOUBLE_EQ(view.Map().m11(), fit);
}

TEST_F(View, ManyMovesShowWhatPaintingAnewShows) {
    std::mt19937 random(20);
    const auto any = [&](int from, int to) {
        return std::uniform_int_distribution(from, to)(random);
    };
    Wheel({100, 190}, 9);
    for (int move = 0; move < 40; ++move) {
        if (any(0, 4) == 0)
            Wheel({any(0, 599), any(0, 399)}, any(-1, 1));
        else
            Drag({any(0, 599), any(0, 399)}, {any(-250, 250), any(-250, 250)},
                 any(0, 1) ? Qt::LeftButton : Qt::MiddleButton);
        EXPECT_LT(Differing(Shown(), Expected()), 60) << "move " << move;
    }
}

TEST_F(View, AClickPicksTheEntityAndADragDoesNot) {
    std::vector<uint64_t> picked;
    view.onPick = [&](uint64_t handle) { picked.push_back(handle); };
    const auto& items = list->parts.front().items;
    const auto text = std::find_if(items.begin(), items.end(), [](const auto& item) {
        return item.kind == painter::ItemKind::Text;
    });
    ASSERT_NE(text, items.end());
    const QPointF middle((text->bounds.left + text->bounds.right) / 2,
                         (text->bounds.bottom + text->bounds.top) / 2);
    QTest::mouseClick(&view, Qt::LeftButton, {}, view.Map().map(middle).toPoint());
    ASSERT_EQ(picked.size(), 1u);
    EXPECT_NE(picked[0], 0u);
    Drag({300, 200}, {50, 0}, Qt::LeftButton);
    EXPECT_EQ(picked.size(), 1u);
    QTest::mouseClick(&view, Qt::LeftButton, {}, {1, 1});
    EXPECT_EQ(picked.back(), 0u) << "nothing is there";
}

TEST_F(View, AnEmptyDrawingIsAnEmptyView) {
    list = std::make_shared<const painter::DisplayList>();
    view.Show(list, ui::DrawingView::Place::Fit);
    Wheel({1, 1}, 5);
    Drag({300, 200}, {50, 0}, Qt::LeftButton);
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(Shown(), Expected());
}
