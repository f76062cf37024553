// The measuring of texts against their controls.
#include "tests/pictures/CutTexts.h"

#include <QCheckBox>
#include <QGlyphRun>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextLayout>

namespace {

// Where the ink of a text in one line comes, its base line put by the font of the control. Letters
// that another font lends make the line higher than that, and may be whole all the same.
QRect Ink(const QWidget& control, const QString& text) {
    const QFontMetrics metrics = control.fontMetrics();
    return metrics.tightBoundingRect(text).translated(0, metrics.ascent());
}

// A label that leads to a field has a mnemonic.
QString Shown(const QLabel& label) {
    return label.buddy() ? QString(label.text()).remove('&') : label.text();
}

bool FitsLine(const QLabel& label) {
    const QSize room = label.contentsRect().size();
    const QString text = Shown(label);
    const QRect ink = Ink(label, text);
    return !text.contains('\n') && ink.top() >= 0 && ink.bottom() < room.height() &&
           label.fontMetrics().horizontalAdvance(text) <= room.width();
}

bool FitsWrapped(const QLabel& label) {
    const QRect room = label.contentsRect();
    const QRect needed = label.fontMetrics().boundingRect(
        QRect(0, 0, room.width(), 10000), label.wordWrap() ? Qt::TextWordWrap : 0, Shown(label));
    return needed.width() <= room.width() && needed.height() <= room.height();
}

bool FitsLabel(const QLabel& label) { return FitsLine(label) || FitsWrapped(label); }

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
    return Ink(group, group.title()).top() >= 0 &&
           group.fontMetrics().horizontalAdvance(group.title()) <= group.width() - kFrame;
}

}  // namespace

QStringList CutTexts(const QWidget& window) {
    QStringList cut;
    auto check = [&cut](bool fits, const QWidget& control, const QString& text) {
        if (control.isVisible() && !text.isEmpty() && (!fits || !HasLetters(control.font(), text)))
            cut << text;
    };
    for (const auto* label : window.findChildren<QLabel*>())
        check(FitsLabel(*label), *label, label->text());
    for (const auto* button : window.findChildren<QAbstractButton*>())
        check(FitsButton(*button), *button, button->text());
    for (const auto* group : window.findChildren<QGroupBox*>())
        check(FitsGroup(*group), *group, group->title());
    return cut;
}

bool HasLetters(const QFont& font, QString text) {
    QTextLayout layout(text.remove('\n'), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns())
        if (run.glyphIndexes().contains(0)) return false;
    return true;
}
