// A grid of colours, the number beside it, OK and Cancel.
#include "apps/ui/ColorPicker.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

#include "apps/ui/ColorGrid.h"
#include "apps/ui/Owner.h"
#include "platform/drawing/CmColor.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/window/qt/WindowHandle.h"

namespace ui {

namespace {

QString Say(const char* text) { return QCoreApplication::translate("ColorPicker", text); }

class PickerDialog : public QDialog {
  public:
    PickerDialog(QWidget* owner, int index)
        : QDialog(owner),
          grid(new ColorGrid(this)),
          number(new QSpinBox(this)),
          text(new QLabel(this)) {
        setWindowTitle(Say("Color"));
        number->setRange(OdCmColor::kByBlock, OdCmColor::kByLayer);
        Arrange();
        grid->onChosen = [this](int chosen) { Show(chosen); };
        grid->onAccepted = [this] { accept(); };
        connect(number, &QSpinBox::valueChanged, this, [this](int value) { grid->Choose(value); });
        grid->Choose(index);
        grid->setFocus();
    }

    int Chosen() const { return grid->Index(); }

  private:
    void Arrange() {
        auto* label = new QLabel(Say("&Number:"), this);
        label->setBuddy(number);
        auto* line = new QHBoxLayout;
        line->addWidget(label);
        line->addWidget(number);
        line->addWidget(text, 1);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* column = new QVBoxLayout(this);
        column->addWidget(grid);
        column->addLayout(line);
        column->addWidget(buttons);
        column->setSizeConstraint(QLayout::SetFixedSize);
    }

    void Show(int chosen) {
        number->setValue(chosen);
        text->setText(ColorText(chosen));
    }

    ColorGrid* grid;
    QSpinBox* number;
    QLabel* text;
};

}  // namespace

int ColorPicker::PickColor(WindowHandle* owner, int index, int* chosen) {
    PickerDialog dialog(OwnerOf(WidgetOf(owner)), index);
    if (dialog.exec() != QDialog::Accepted) return kLispCancelled;
    *chosen = dialog.Chosen();
    return kLispNormal;
}

}  // namespace ui
