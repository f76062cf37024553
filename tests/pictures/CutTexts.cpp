// The measuring of texts against their controls.
#include "tests/pictures/CutTexts.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

namespace {

bool FitsLabel(const QLabel& label) {
    const QRect room = label.contentsRect();
    const int flags =
        (label.wordWrap() ? Qt::TextWordWrap : 0) | (label.buddy() ? Qt::TextShowMnemonic : 0);
    const QRect needed =
        label.fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000), flags, label.text());
    return needed.width() <= room.width() && needed.height() <= room.height() + 1;
}

bool FitsButton(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const bool box = qobject_cast<const QCheckBox*>(&button);
    const QRect room = button.style()->subElementRect(
        box ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents, &option, &button);
    return button.fontMetrics().horizontalAdvance(QString(button.text()).remove('&')) <=
           room.width();
}

bool FitsGroup(const QGroupBox& group) {
    constexpr int kFrame = 16;
    return group.fontMetrics().horizontalAdvance(group.title()) <= group.width() - kFrame;
}

}  // namespace

QStringList CutTexts(const QWidget& window) {
    QStringList cut;
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (label->isVisible() && !FitsLabel(*label)) cut << label->text();
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !FitsButton(*button)) cut << button->text();
    }
    for (const auto* group : window.findChildren<QGroupBox*>()) {
        if (group->isVisible() && !FitsGroup(*group)) cut << group->title();
    }
    cut.removeAll({});
    return cut;
}
