// CIResizableDialog: a dialog with a smallest size that follows the screen's DPI.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/window/CDialog.h"

class CIResizableDialog : public CDialog {
    DECLARE_DYNAMIC(CIResizableDialog)

  public:
    CIResizableDialog(UINT templateId, CWnd* parent) : CDialog(templateId, parent) {}
    ~CIResizableDialog() override = default;

    BOOL OnInitDialog() override;

    // Brings the window to that DPI by the quotient of the two; its top left corner stays. 0.
    virtual LRESULT OnDpiAlterado(uint16_t novo);

  protected:
    int32_t larguraMinima = 450;  // pixels
    int32_t alturaMinima = 525;
    // The window's rectangle at the last sizing. Until there is one, and while the window stands at
    // or beyond the screen's left or upper edge, no smallest size holds; this is meant.
    std::unique_ptr<CRect> ultimoRetangulo = std::make_unique<CRect>();
    uint16_t dpi = 96;  // that the window has been brought to

    void OnSizing(UINT side, LPRECT rect);
    LRESULT OnDpiChanged(WPARAM newDpi, LPARAM rect);
    DECLARE_MESSAGE_MAP()
};
