// The owner of a service's window.
#include "apps/ui/Owner.h"

#include <QApplication>

namespace ui {

QWidget* OwnerOf(QWidget* asked) {
    QWidget* const inFront = QApplication::activeModalWidget();
    return inFront ? inFront : asked;
}

}  // namespace ui
