// The dialog in which the user chooses one of the indexed colours.
#pragma once

#include "platform/kernel/MxColorPicker.h"

namespace ui {

class ColorPicker : public CMxColorPicker {
  public:
    int PickColor(WindowHandle* owner, int index, int* chosen) override;
};

}  // namespace ui
