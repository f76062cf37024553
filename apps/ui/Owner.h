// Which window a modal window of a service stands above.
#pragma once

class QWidget;

namespace ui {

// The modal dialog in front, if there is one: a box that belongs to the main window behind it could
// be covered by it. Otherwise the window asked for, which may be null.
QWidget* OwnerOf(QWidget* asked);

}  // namespace ui
