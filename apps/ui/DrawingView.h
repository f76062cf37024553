// The view of a drawing: pans, zooms and fits what a display list holds.
#pragma once

#include <QImage>
#include <QTimer>
#include <QTransform>
#include <QWidget>
#include <functional>
#include <memory>

#include "apps/painter/PagePainter.h"

namespace ui {

// Left or middle button: pan; a click of the left one: pick; wheel, + and -: zoom; Home: fit. While
// the user moves, the last picture is shifted or stretched, and what it lacks is painted as soon as
// there is time.
class DrawingView : public QWidget {
  public:
    explicit DrawingView(QWidget* parent = nullptr);

    enum class Place { Keep, Fit };
    void Show(std::shared_ptr<const painter::DisplayList> newList, Place place);
    const std::shared_ptr<const painter::DisplayList>& List() const { return list; }

    void Fit();
    void Zoom(double factor);  // about the middle
    void ZoomAt(double factor, QPointF at);
    void Pan(QPoint by);
    bool IsExact() const { return pictureMap == map; }  // what is shown is not stretched
    const QTransform& Map() const { return map; }       // drawing units to pixels of the device

    std::function<void(QPointF)> onMove;   // drawing units under the mouse
    std::function<void(uint64_t)> onPick;  // handle of the entity that was clicked, 0 for none

    QSize sizeHint() const override { return {900, 600}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QSize DeviceSize() const;
    QPointF WorldAt(QPointF at) const;
    QColor Background() const;
    painter::PaintOptions Options() const;
    void BringUpToDate();
    void PaintWhole();
    void Scroll(QPoint by);
    void PaintPart(QPainter& painter, const QRect& part) const;

    std::shared_ptr<const painter::DisplayList> list;
    QTransform map;
    bool fitted = true;       // the user has not moved it: a new size fits it again
    QImage picture;           // null: out of date as a whole
    QTransform pictureMap;    // that it was painted with
    qint64 lastDuration = 0;  // of painting the whole, in milliseconds
    QTimer settle;            // the stretched picture is to be painted
    QPoint dragFrom;
    bool dragged = false;
};

}  // namespace ui
