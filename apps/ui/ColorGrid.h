// The indexed colours as fields to choose from.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

namespace ui {

// 24 columns of hues with ten shades each; below them colour by block (0), the basic colours, the
// greys, and colour by layer (256). One field is chosen: by a click, or by the arrow keys.
class ColorGrid : public QWidget {
  public:
    explicit ColorGrid(QWidget* parent);

    int Index() const { return index; }
    void Choose(int newIndex);  // 0 to 256
    QRect FieldOf(int wanted) const;
    int IndexAt(const QPoint& point) const;  // -1 for none

    std::function<void(int)> onChosen;  // after every change
    std::function<void()> onAccepted;   // a double click

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void MoveBy(int dx, int dy);

    std::vector<std::vector<int>> lines;  // the numbers of the fields, from the top
    int index = 0;
};

// "By block", "By layer", or the number with its red, green and blue.
QString ColorText(int index);

}  // namespace ui
