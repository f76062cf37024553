// Measures the painter: the repaint of 100,000 visible entities against a QGraphicsView with the
// same lines and texts. Times are user time.
//
// painter_bench repaint
#include <sys/resource.h>

#include <QApplication>
#include <QGraphicsLineItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "apps/painter/ListBuilder.h"
#include "apps/painter/PagePainter.h"

namespace {

constexpr int kColumns = 250, kRows = 400;  // 100,000 entities, one in a cell
constexpr double kCellWidth = 10, kCellHeight = 7.5, kCapitals = 5;
constexpr QSize kWindow(4000, 4800);

double UserSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec) * 1e-6;
}

template <class Work>
double Median(int runs, const Work& work) {
    std::vector<double> seconds;
    for (int i = 0; i < runs; ++i) {
        const double begin = UserSeconds();
        work();
        seconds.push_back(UserSeconds() - begin);
    }
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

// Two texts in five, the others lines of all directions.
bool IsText(int cell) { return cell % 5 < 2; }
QPointF PlaceOf(int cell) {
    return {kCellWidth * (cell % kColumns), kCellHeight * (cell / kColumns)};
}
QPointF EndOf(int cell) {
    return PlaceOf(cell) + QPointF(kCellWidth * 0.9, kCellHeight * (cell % 7) / 7);
}
QString TextOf(int cell) { return QString("-K%1:A%2").arg(cell % 1000).arg(cell % 3); }

std::string MakeDrawing() {
    std::string dxf = "0\nSECTION\n2\nENTITIES\n";
    const auto point = [&](int code, QPointF p) {
        dxf += std::to_string(code) + "\n" + std::to_string(p.x()) + "\n" +
               std::to_string(code + 10) + "\n" + std::to_string(p.y()) + "\n";
    };
    for (int cell = 0; cell < kColumns * kRows; ++cell) {
        dxf += IsText(cell) ? "0\nTEXT\n8\nP\n40\n" + std::to_string(kCapitals) + "\n1\n" +
                                  TextOf(cell).toStdString() + "\n"
                            : "0\nLINE\n8\nP\n";
        point(10, PlaceOf(cell));
        if (!IsText(cell)) point(11, EndOf(cell));
    }
    return dxf + "0\nENDSEC\n0\nEOF\n";
}

double PaintList(const painter::DisplayList& list, QImage& image) {
    const QRectF window(QPointF(0, 0), QSizeF(kWindow));
    const QTransform map = painter::FitTransform(list.extents, window);
    return Median(7, [&] {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter::Paint(painter, list, map, window);
    });
}

void FillScene(QGraphicsScene& scene, const painter::Font& font) {
    const double scale = kCapitals / (font.CapHeight() * painter::Font::kPixels);
    const QPen pen(Qt::black, 0);
    for (int cell = 0; cell < kColumns * kRows; ++cell) {
        if (!IsText(cell)) {
            scene.addLine(QLineF(PlaceOf(cell), EndOf(cell)), pen);
            continue;
        }
        auto* text = scene.addSimpleText(TextOf(cell), font.Drawn());
        const double ascent = QFontMetricsF(font.Drawn()).ascent();
        text->setTransform(
            QTransform(scale, 0, 0, -scale, PlaceOf(cell).x(), PlaceOf(cell).y() + ascent * scale));
    }
}

double PaintScene(QGraphicsScene& scene, const painter::DisplayList& list, QImage& image) {
    QGraphicsView view(&scene);
    view.setFrameStyle(0);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setRenderHint(QPainter::Antialiasing);
    view.resize(kWindow);
    const QRectF window(QPointF(0, 0), QSizeF(kWindow));
    view.setTransform(painter::FitTransform(list.extents, window));
    view.centerOn(
        QPointF(list.extents.left + list.extents.right, list.extents.bottom + list.extents.top) /
        2);
    return Median(7, [&] {
        image.fill(Qt::white);
        QPainter painter(&image);
        view.viewport()->render(&painter);
    });
}

// Pixels that are not white: both must have painted about the same.
double Ink(const QImage& image) {
    double ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) ink += 255 - qGray(line[x]);
    }
    return ink / 255;
}

int Repaint() {
    OdDbDatabasePtr drawing = OdDbDatabase::fromStore(dxf::Store::Parse(MakeDrawing()));
    const auto list = painter::BuildDisplayList(*drawing);
    QImage ours(kWindow, QImage::Format_RGB32), theirs(kWindow, QImage::Format_RGB32);
    const double oursSeconds = PaintList(*list, ours);
    QGraphicsScene scene;
    FillScene(scene, list->fonts->At(0));
    const double theirsSeconds = PaintScene(scene, *list, theirs);
    std::printf("repaint %.1f ms, graphics view %.1f ms, ink %.0f and %.0f\n", oursSeconds * 1e3,
                theirsSeconds * 1e3, Ink(ours), Ink(theirs));
    if (std::abs(Ink(ours) / Ink(theirs) - 1) > 0.1) {
        std::fprintf(stderr, "the two did not paint the same\n");
        return 2;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], "repaint") == 0) return Repaint();
    std::fprintf(stderr, "usage: painter_bench repaint\n");
    return 2;
}
