// A dialog with a smallest size that follows the screen's DPI.
#include "translator/listview/CIResizableDialog.h"

#include <algorithm>
#include <cmath>

#include "platform/window/CDC.h"

namespace {

constexpr uint16_t kDpiNormal = 96;

// One axis of the rectangle that the user asks for. Below the smallest extent it stands where it
// stood before, as far as that goes.
void Limitar(LONG& near, LONG& far, LONG lastNear, LONG lastFar, LONG smallest) {
    if (far - near >= smallest) return;
    near = lastNear;
    far = std::max(lastFar, lastNear + smallest);
}

}  // namespace

IMPLEMENT_DYNAMIC(CIResizableDialog, CDialog)

BEGIN_MESSAGE_MAP(CIResizableDialog, CDialog)
ON_WM_SIZING()
ON_MESSAGE(WM_DPICHANGED, &CIResizableDialog::OnDpiChanged)
END_MESSAGE_MAP()

BOOL CIResizableDialog::OnInitDialog() {
    dpi = kDpiNormal;
    const int screen = CClientDC(this).GetDeviceCaps(LOGPIXELSX);
    if (screen != kDpiNormal) {
        CRect window;
        GetWindowRect(window);
        SendMessage(WM_DPICHANGED, MAKEWPARAM(screen, screen), reinterpret_cast<LPARAM>(&window));
    }
    return CDialog::OnInitDialog();
}

LRESULT CIResizableDialog::OnDpiChanged(WPARAM newDpi, LPARAM) {
    return OnDpiAlterado(LOWORD(newDpi));
}

LRESULT CIResizableDialog::OnDpiAlterado(uint16_t novo) {
    const double factor = static_cast<double>(dpi) / novo;
    CRect window;
    GetWindowRect(window);
    SetWindowPos(nullptr, 0, 0, static_cast<int>(std::lround(window.Width() / factor)),
                 static_cast<int>(std::lround(window.Height() / factor)),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    dpi = novo;
    return 0;
}

void CIResizableDialog::OnSizing(UINT side, LPRECT rect) {
    const CRect& last = *ultimoRetangulo;
    if (last.left > 0 && last.top > 0 && last.right > 0 && last.bottom > 0) {
        Limitar(rect->left, rect->right, last.left, last.right, larguraMinima);
        Limitar(rect->top, rect->bottom, last.top, last.bottom, alturaMinima);
    }
    CDialog::OnSizing(side, rect);
    *ultimoRetangulo = CRect(*rect);
}
