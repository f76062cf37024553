// Accessible names from the labels' places.
#include "platform/window/qt/AccessibleNames.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLineEdit>
#include <climits>

namespace {

constexpr char TEXT[] = "labelText";

QString Plain(QString text) {
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(u'&');
    return text.replace(u'\x01', u'&');
}

bool NeedsLabel(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractScrollArea*>(&widget);
}

// How far the label stands above or left of the control; INT_MAX for anywhere else. Templates let a
// label and its control overlap by a pixel or two.
int DistanceTo(const QRect& control, const QRect& label) {
    constexpr int SLACK = 4, NEAR = 40;
    const bool sameColumn = label.left() <= control.right() && label.right() >= control.left();
    const int above = control.top() - label.bottom();
    if (sameColumn && above >= -SLACK && above <= NEAR) return above + SLACK;
    const bool sameLine = label.top() <= control.bottom() && label.bottom() >= control.top();
    const int before = control.left() - label.right();
    if (sameLine && before >= -SLACK && before <= NEAR) return before + SLACK;
    return INT_MAX;
}

// A label belongs to the one control that it is nearest to.
bool IsNearerToAnother(const WindowHandle& window, const QLabel& label, const QWidget& control) {
    const int distance = DistanceTo(control.geometry(), label.geometry());
    for (HWND child : window.children) {
        const QWidget* other = child->widget;
        if (other && other != &control && NeedsLabel(*other) &&
            DistanceTo(other->geometry(), label.geometry()) < distance)
            return true;
    }
    return false;
}

QLabel* LabelFor(const WindowHandle& window, const QWidget& control) {
    QLabel* nearest = nullptr;
    int distance = INT_MAX;
    for (HWND child : window.children) {
        auto* label = qobject_cast<QLabel*>(child->widget.data());
        if (!label || TextOfLabel(*label).isEmpty()) continue;
        const int here = DistanceTo(control.geometry(), label->geometry());
        if (here < distance && !IsNearerToAnother(window, *label, control))
            distance = here, nearest = label;
    }
    return nearest;
}

QString NameOfWindow(const WindowHandle* window) {
    for (; window; window = window->parent)
        if (window->widget && !window->widget->windowTitle().isEmpty())
            return window->widget->windowTitle();
    return {};
}

}  // namespace

void SetTextOfLabel(QLabel& label, const QString& text) {
    label.setProperty(TEXT, text);
    label.setText(label.buddy() ? text : Plain(text));
}

QString TextOfLabel(const QLabel& label) { return label.property(TEXT).toString(); }

void NameControls(WindowHandle& window) {
    for (HWND child : window.children) {
        QWidget* control = child->widget;
        if (!control || !child->HasStyle(WS_CHILD) || !NeedsLabel(*control)) continue;
        QLabel* label = LabelFor(window, *control);
        control->setAccessibleName(label ? Plain(TextOfLabel(*label)) : NameOfWindow(&window));
        if (!label || label->buddy() == control) continue;
        label->setBuddy(control);
        label->setText(TextOfLabel(*label));
    }
}
