// Dialog templates: tables of controls in dialog units, found by their number.
#pragma once

#include <span>

#include "platform/window/Styles.h"
#include "platform/window/WindowTypes.h"

enum class ControlKind {
    PushButton,
    DefPushButton,
    AutoCheckBox,
    AutoRadioButton,
    GroupBox,
    LeftText,
    EditText,
    DropDownList,
    DropDown,
    ListBox,
    ListView,
};

// One control. Its kind brings the usual styles with it (visible, child, tab stop where the
// keyboard has business there); style adds to them. The tab order is the order of the table.
// x, y, width and height are dialog units: 6/4 pixels across, 13/8 pixels down.
struct DialogControl {
    ControlKind kind;
    UINT id;
    LPCWSTR text;
    int x, y, width, height;
    DWORD style = 0;
};

// Width and height are those of the client area.
struct DialogTemplate {
    UINT id;
    LPCWSTR caption;
    int width, height;
    DWORD style;  // WS_THICKFRAME for a frame that the user can size, WS_CHILD for a page
    std::span<const DialogControl> controls;
    LPCWSTR font = u"MS Shell Dlg";
    int points = 8;
};

// Makes a template known as long as it lives; a static object beside the table. A number given
// twice means the later one, so that a host may have numbers that a library uses too.
class DialogResource {
  public:
    explicit DialogResource(const DialogTemplate& table);
    DialogResource(const DialogResource&) = delete;
    DialogResource& operator=(const DialogResource&) = delete;
    ~DialogResource();

  private:
    const DialogTemplate& table;
};

const DialogTemplate* FindDialogTemplate(UINT id);  // null for an unknown number

constexpr int DialogUnitsX(int units) { return (units * 6 + 2) / 4; }
constexpr int DialogUnitsY(int units) { return (units * 13 + 4) / 8; }
