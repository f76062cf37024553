// A field whose limit of characters binds the user.
#include "platform/window/qt/LimitedField.h"

#include <algorithm>

LimitedField::LimitedField(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textEdited, this, [this] { CutEntered(); });
    connect(this, &QLineEdit::textChanged, this, [this] { length = text().size(); });
}

// What was entered last stands before the cursor.
void LimitedField::CutEntered() {
    if (limit <= 0) return;
    const auto over = static_cast<int>(text().size() - std::max<qsizetype>(limit, before));
    if (over > 0 && cursorPosition() >= over) {
        setSelection(cursorPosition() - over, over);
        del();
    }
}

bool LimitedField::event(QEvent* event) {
    before = length;
    return QLineEdit::event(event);
}
