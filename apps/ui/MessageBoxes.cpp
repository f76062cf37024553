// Message boxes of the toolkit.
#include "apps/ui/MessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

#include "apps/ui/Owner.h"

namespace ui {

int MessageBoxes::Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text,
                       int buttons, int defaultButton) {
    QMessageBox box(OwnerOf(parent));
    box.setIcon(kind == Kind::Question ? QMessageBox::Question : QMessageBox::Information);
    box.setWindowTitle(QString::fromStdU16String(title.text()));
    box.setTextFormat(Qt::PlainText);
    box.setText(static_cast<const QString&>(text));
    box.setStandardButtons(QMessageBox::StandardButtons(buttons ? buttons : kButtonOk));
    if (defaultButton) box.setDefaultButton(QMessageBox::StandardButton(defaultButton));
    return box.exec();
}

}  // namespace ui
