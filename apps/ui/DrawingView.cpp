// Moving about in a drawing, and painting no more of it than has come into sight.
#include "apps/ui/DrawingView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "apps/painter/PagePainter.h"

namespace ui {

namespace {

constexpr double kMargin = 0.03;  // of the view, around a drawing that fits
constexpr double kZoomStep = 1.25;
constexpr double kFarthestOut = 0.01, kFarthestIn = 1e6;  // of the scale at which it fits
constexpr qint64 kQuick = 30;  // milliseconds: a picture that takes longer is stretched at first
constexpr int kSettle = 60;    // milliseconds without a further step

double ScaleOf(const QTransform& map) { return std::sqrt(std::abs(map.determinant())); }

QTransform Fitting(const painter::DisplayList& list, QSizeF size) {
    const double dx = size.width() * kMargin, dy = size.height() * kMargin;
    return painter::FitTransform(list.extents,
                                 QRectF(QPointF(0, 0), size).adjusted(dx, dy, -dx, -dy));
}

}  // namespace

DrawingView::DrawingView(QWidget* parent)
    : QWidget(parent), list(std::make_shared<painter::DisplayList>()) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 80);
    settle.setSingleShot(true);
    settle.setInterval(kSettle);
    settle.callOnTimeout(this, [this] {
        picture = {};
        update();
    });
}

void DrawingView::Show(std::shared_ptr<const painter::DisplayList> newList, Place place) {
    list = std::move(newList);
    picture = {};
    if (place == Place::Fit || fitted)
        Fit();
    else
        update();
}

void DrawingView::Fit() {
    fitted = true;
    map = Fitting(*list, DeviceSize());
    update();
}

void DrawingView::Zoom(double factor) { ZoomAt(factor, rect().center()); }

void DrawingView::ZoomAt(double factor, QPointF at) {
    const double fit = ScaleOf(Fitting(*list, DeviceSize()));
    const double scale = ScaleOf(map);
    const double least = std::min(scale, fit * kFarthestOut);
    const double most = std::max(scale, fit * kFarthestIn);
    factor = std::clamp(scale * factor, least, most) / scale;
    fitted = false;
    const QPointF place = at * devicePixelRatio();
    map *= QTransform(factor, 0, 0, factor, place.x() * (1 - factor), place.y() * (1 - factor));
    update();
}

// By whole pixels of the device, so that the picture can be shifted.
void DrawingView::Pan(QPoint by) {
    fitted = false;
    const QPoint device = (QPointF(by) * devicePixelRatio()).toPoint();
    map *= QTransform::fromTranslate(device.x(), device.y());
    update();
}

QSize DrawingView::DeviceSize() const { return (QSizeF(size()) * devicePixelRatio()).toSize(); }

QPointF DrawingView::WorldAt(QPointF at) const {
    return map.inverted().map(at * devicePixelRatio());
}

QColor DrawingView::Background() const { return palette().color(QPalette::Base); }

void DrawingView::paintEvent(QPaintEvent*) {
    BringUpToDate();
    QPainter painter(this);
    painter.scale(1 / devicePixelRatio(), 1 / devicePixelRatio());
    if (map == pictureMap) {
        painter.drawImage(0, 0, picture);
        return;
    }
    painter.fillRect(QRect(QPoint(0, 0), DeviceSize()), Background());
    painter.setTransform(pictureMap.inverted() * map, true);
    painter.drawImage(0, 0, picture);
}

painter::PaintOptions DrawingView::Options() const {
    painter::PaintOptions options;
    options.background = Background();
    options.lineWidth = devicePixelRatio();
    return options;
}

void DrawingView::BringUpToDate() {
    if (picture.size() != DeviceSize()) return PaintWhole();
    if (map == pictureMap) return;
    const QPointF shift(map.dx() - pictureMap.dx(), map.dy() - pictureMap.dy());
    const bool sameScale = map.m11() == pictureMap.m11() && map.m22() == pictureMap.m22();
    if (sameScale && QPointF(shift.toPoint()) == shift && !settle.isActive())
        return Scroll(shift.toPoint());
    if (lastDuration <= kQuick) return PaintWhole();
    settle.start();
}

void DrawingView::PaintWhole() {
    QElapsedTimer clock;
    clock.start();
    settle.stop();
    picture = QImage(DeviceSize(), QImage::Format_RGB32);
    picture.fill(Background());
    painter::PaintImage(picture, *list, map, Options());
    pictureMap = map;
    lastDuration = clock.elapsed();
}

void DrawingView::Scroll(QPoint by) {
    QImage next(picture.size(), picture.format());
    QPainter painter(&next);
    painter.drawImage(by, picture);
    const QRegion missing = QRegion(next.rect()) - QRegion(picture.rect().translated(by));
    for (const QRect& part : missing) PaintPart(painter, part);
    painter.end();
    picture = next;
    pictureMap = map;
}

void DrawingView::PaintPart(QPainter& painter, const QRect& part) const {
    constexpr int kLineWidths = 2;  // what reaches in from beside the part
    painter.save();
    painter.setClipRect(part);
    painter.fillRect(part, Background());
    const int reach = kLineWidths * static_cast<int>(std::ceil(devicePixelRatio()));
    painter::Paint(painter, *list, map, QRectF(part).adjusted(-reach, -reach, reach, reach),
                   Options());
    painter.restore();
}

void DrawingView::resizeEvent(QResizeEvent*) {
    if (fitted) Fit();
}

void DrawingView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) picture = {};
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    dragFrom = event->pos();
    dragged = false;
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    if (onMove) onMove(WorldAt(event->position()));
    if (!(event->buttons() & (Qt::LeftButton | Qt::MiddleButton))) return;
    const QPoint by = event->pos() - dragFrom;
    if (!dragged && by.manhattanLength() < QApplication::startDragDistance()) return;
    dragged = true;
    setCursor(Qt::ClosedHandCursor);
    Pan(by);
    dragFrom = event->pos();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    setCursor(Qt::CrossCursor);
    if (dragged || event->button() != Qt::LeftButton || !onPick) return;
    constexpr double kNear = 4;  // pixels
    onPick(painter::EntityAt(*list, WorldAt(event->position()),
                             kNear * devicePixelRatio() / ScaleOf(map)));
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) Fit();
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    constexpr double kNotch = 120;
    ZoomAt(std::pow(kZoomStep, event->angleDelta().y() / kNotch), event->position());
    event->accept();
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
    const QPoint step(width() / 10, height() / 10);
    switch (event->key()) {
        case Qt::Key_Left:
            return Pan({step.x(), 0});
        case Qt::Key_Right:
            return Pan({-step.x(), 0});
        case Qt::Key_Up:
            return Pan({0, step.y()});
        case Qt::Key_Down:
            return Pan({0, -step.y()});
        case Qt::Key_Plus:
            return Zoom(kZoomStep);
        case Qt::Key_Minus:
            return Zoom(1 / kZoomStep);
        case Qt::Key_Home:
            return Fit();
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace ui
