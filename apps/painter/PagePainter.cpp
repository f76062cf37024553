// Painting a display list as a whole, or in bands.
#include "apps/painter/PagePainter.h"

#include <QImage>
#include <algorithm>
#include <future>
#include <thread>

#include "apps/painter/ListPainter.h"

namespace painter {

namespace {

constexpr size_t kManyItems = 50000;  // below that a thread does not pay
constexpr unsigned kMostBands = 8;

// A picture of its own that shares the memory of the whole one.
QImage BandOf(QImage& image, int top, int bottom) {
    return QImage(image.bits() + qsizetype{top} * image.bytesPerLine(), image.width(), bottom - top,
                  image.bytesPerLine(), image.format());
}

bool PaintBand(QImage band, int top, const DisplayList& list, const QTransform& map,
               const PaintOptions& options) {
    const int reach = 2 * static_cast<int>(std::ceil(options.lineWidth));  // from beside the band
    const QTransform moved = map * QTransform::fromTranslate(0, -top);
    QPainter painter(&band);
    return ListPainter(painter, list, moved, options)
        .PaintShapesAndBars(QRectF(band.rect()).adjusted(-reach, -reach, reach, reach));
}

}  // namespace

QTransform FitTransform(const Bounds& extents, const QRectF& target) {
    if (extents.IsEmpty()) return {};
    const double width = std::max(extents.Width(), 1e-9);
    const double height = std::max(extents.Height(), 1e-9);
    const double scale = std::min(target.width() / width, target.height() / height);
    QTransform map;
    map.translate(target.center().x(), target.center().y());
    map.scale(scale, -scale);
    map.translate(-(extents.left + extents.right) / 2, -(extents.bottom + extents.top) / 2);
    return map;
}

void Paint(QPainter& painter, const DisplayList& list, const QTransform& worldToDevice,
           const QRectF& window, const PaintOptions& options) {
    ListPainter whole(painter, list, worldToDevice, options);
    if (whole.PaintShapesAndBars(window)) whole.PaintLetters();
}

void PaintImage(QImage& image, const DisplayList& list, const QTransform& worldToDevice,
                const PaintOptions& options) {
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1u, kMostBands);
    const bool many = list.ItemCount() >= kManyItems;
    const int bands = many ? std::min(static_cast<int>(threads), image.height()) : 1;
    std::vector<std::future<bool>> others;
    const auto edge = [&](int band) { return image.height() * band / bands; };
    image.bits();  // a copy for itself, if others have the picture too
    for (int i = 1; i < bands; ++i) {
        others.push_back(std::async(std::launch::async, PaintBand,
                                    BandOf(image, edge(i), edge(i + 1)), edge(i), std::cref(list),
                                    worldToDevice, options));
    }
    bool letters = PaintBand(BandOf(image, 0, edge(1)), 0, list, worldToDevice, options);
    for (auto& other : others) letters |= other.get();
    if (!letters) return;
    QPainter painter(&image);
    ListPainter whole(painter, list, worldToDevice, options);
    if (whole.FindLetters(QRectF(image.rect()))) whole.PaintLetters();
}

}  // namespace painter
