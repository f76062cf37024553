// What all cell editors have in common: navigation between cells, and an editor's end.
#include "platform/window/AfxWin.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {
namespace {

// The row where a key leads within the list, or -1.
int32_t LinhaVizinha(const CIListViewEdit& list, int32_t row, bool down) {
    if (!down) return row < 1 ? -1 : row - 1;
    return row + 1 < list.GetItemCount() ? row + 1 : -1;
}

void EditarLinha(CIListViewEdit& list, int32_t row, int32_t col) {
    list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    list.BeginEdit(row, col);
}

// The key is sent, so that it is no dialog key: Enter ends the edit and not the dialog.
void Sair(CWnd* window, UINT key) {
    if (!window) return;
    window->SetFocus();
    window->SendMessage(WM_KEYDOWN, key);
}

}  // namespace

bool NavegarCelula(UINT key, int32_t row, int32_t col, CWnd* parent) {
    if (!parent || !parent->IsKindOf(RUNTIME_CLASS(CIListViewEdit))) return false;
    auto& list = static_cast<CIListViewEdit&>(*parent);
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    int32_t next = -1;
    switch (key) {
        case VK_TAB:
            next = LinhaVizinha(list, row, !shift);
            if (next < 0) Sair(&list, key);
            break;
        case VK_RETURN:
        case VK_ESCAPE:
            Sair(list.GetParent(), key);
            break;
        case VK_UP:
        case VK_DOWN:
            next = shift ? -1 : LinhaVizinha(list, row, key == VK_DOWN);
            if (next < 0) return false;
            break;
        default:
            return false;
    }
    if (next >= 0) EditarLinha(list, next, col);
    return true;
}

bool TeclaVertical(const MSG& message) {
    return message.message == WM_KEYDOWN && (message.wParam == VK_UP || message.wParam == VK_DOWN);
}

bool TeclaDeEditor(const MSG& message) {
    if (TeclaVertical(message)) return true;
    const WPARAM key = message.wParam;
    return message.message == WM_KEYDOWN &&
           (key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE || key == VK_DELETE);
}

BOOL DespacharTecla(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessage(&message);
    return TRUE;
}

void TomarFonteDaLista(CWnd& editor) {
    if (CWnd* list = editor.GetParent()) editor.SetFont(list->GetFont());
}

TQString TextoDe(const CWnd& window) { return window.GetWindowText(); }

void EncerrarEditor(HWND editor) {
    if (IsWindow(editor)) CWnd::FromHandle(editor)->DestroyWindow();
}

}  // namespace ListView
