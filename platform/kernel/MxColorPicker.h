// The colour picker of a document: lets the user choose one of the indexed colours.
#pragma once

class WindowHandle;  // a window of the window layer

class CMxColorPicker {
  public:
    // Modal above the owner, which may be null; index is the colour to begin with, 0 to 256. Gives
    // kLispNormal with the chosen number in *chosen, or kLispCancelled and leaves it alone.
    virtual int PickColor(WindowHandle* owner, int index, int* chosen) = 0;
    virtual ~CMxColorPicker() = default;
};
