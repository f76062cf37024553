// The fields of the indexed colours: where they lie, how they look, how one is chosen.
#include "apps/ui/ColorGrid.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "platform/drawing/CmColor.h"

namespace ui {

namespace {

constexpr int kField = 16;  // the side of a field in pixels
constexpr int kGap = 8;     // above the last line
constexpr int kHues = 24;
constexpr int kShades[] = {8, 6, 4, 2, 0,
                           1, 3, 5, 7, 9};  // dark to bright, then the pale ones back

QColor ColorOf(int index) {
    OdCmColor color;
    color.setColorIndex(static_cast<uint16_t>(index));
    return {color.red(), color.green(), color.blue()};
}

std::vector<std::vector<int>> Lines() {
    std::vector<std::vector<int>> lines;
    for (const int shade : kShades) {
        std::vector<int>& line = lines.emplace_back();
        for (int hue = 0; hue < kHues; ++hue) line.push_back(10 * (hue + 1) + shade);
    }
    std::vector<int>& last = lines.emplace_back();
    for (int basic = 0; basic < 10; ++basic) last.push_back(basic);
    for (int grey = 250; grey <= 256; ++grey) last.push_back(grey);
    return lines;
}

}  // namespace

QString ColorText(int index) {
    if (index == OdCmColor::kByBlock) return QCoreApplication::translate("ColorGrid", "By block");
    if (index == OdCmColor::kByLayer) return QCoreApplication::translate("ColorGrid", "By layer");
    const QColor color = ColorOf(index);
    return QStringLiteral("%1 (%2, %3, %4)")
        .arg(index)
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue());
}

ColorGrid::ColorGrid(QWidget* parent) : QWidget(parent), lines(Lines()) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QCoreApplication::translate("ColorGrid", "Colors"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Choose(0);
}

QSize ColorGrid::sizeHint() const {
    return {kHues * kField + 1, int(lines.size()) * kField + kGap + 1};
}

void ColorGrid::Choose(int newIndex) {
    index = std::clamp(newIndex, 0, int(OdCmColor::kByLayer));
    setAccessibleDescription(ColorText(index));
    update();
    if (onChosen) onChosen(index);
}

QRect ColorGrid::FieldOf(int wanted) const {
    for (size_t y = 0; y < lines.size(); ++y)
        for (size_t x = 0; x < lines[y].size(); ++x)
            if (lines[y][x] == wanted)
                return {int(x) * kField, int(y) * kField + (y + 1 == lines.size() ? kGap : 0),
                        kField, kField};
    return {};
}

int ColorGrid::IndexAt(const QPoint& point) const {
    for (const auto& line : lines)
        for (const int each : line)
            if (FieldOf(each).contains(point)) return each;
    return -1;
}

void ColorGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const auto& line : lines) {
        for (const int each : line) {
            const QRect field = FieldOf(each).adjusted(1, 1, -1, -1);
            painter.fillRect(field, ColorOf(each));
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawRect(field.adjusted(0, 0, -1, -1));
            if (each == OdCmColor::kByBlock || each == OdCmColor::kByLayer) {
                painter.setPen(Qt::black);
                painter.drawText(field, Qt::AlignCenter, each ? "L" : "B");
            }
        }
    }
    // Black in white: seen on every colour.
    const QRect chosen = FieldOf(index);
    painter.setPen(Qt::white);
    painter.drawRect(chosen.adjusted(1, 1, -2, -2));
    painter.setPen(QPen(Qt::black, hasFocus() ? 2 : 1));
    painter.drawRect(chosen);
}

void ColorGrid::mousePressEvent(QMouseEvent* event) {
    if (const int hit = IndexAt(event->pos()); hit >= 0) Choose(hit);
}

void ColorGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (IndexAt(event->pos()) >= 0 && onAccepted) onAccepted();
}

void ColorGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return MoveBy(-1, 0);
        case Qt::Key_Right:
            return MoveBy(1, 0);
        case Qt::Key_Up:
            return MoveBy(0, -1);
        case Qt::Key_Down:
            return MoveBy(0, 1);
        default:
            QWidget::keyPressEvent(event);
    }
}

void ColorGrid::MoveBy(int dx, int dy) {
    for (size_t y = 0; y < lines.size(); ++y) {
        const auto place = std::find(lines[y].begin(), lines[y].end(), index);
        if (place == lines[y].end()) continue;
        const auto& line = lines[std::clamp<size_t>(y + dy + 1, 1, lines.size()) - 1];
        const auto x = place - lines[y].begin() + dx;
        return Choose(line[std::clamp<std::ptrdiff_t>(x, 0, std::ssize(line) - 1)]);
    }
}

bool ColorGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const int hit = IndexAt(help.pos());
    if (hit >= 0) QToolTip::showText(help.globalPos(), ColorText(hit), this, FieldOf(hit));
    return true;
}

}  // namespace ui
