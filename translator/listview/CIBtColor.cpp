// The button of a colour cell: lets the user choose a colour and writes its number into the field.
#include <algorithm>
#include <array>

#include "platform/kernel/MxColorPicker.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/kernel/MxSystemServices.h"
#include "platform/window/AfxWin.h"
#include "platform/window/CDialog.h"
#include "translator/listview/BotaoDaCelula.h"
#include "translator/listview/CIColorPropriedade.h"
#include "translator/listview/CIListViewEdit.h"

namespace ListView {
namespace {

constexpr int kUltimoIndice = 256;

CWnd* DialogoAcima(CWnd* window) {
    while (window && !window->IsKindOf(RUNTIME_CLASS(CDialog))) window = window->GetParent();
    return window;
}

// Windows that take no input for as long as this lives, unless they have gone at the end.
class Desabilitados {
  public:
    Desabilitados(CWnd* dialog, CWnd* button)
        : windows{dialog ? dialog->m_hWnd : nullptr, button->m_hWnd} {
        Habilitar(FALSE);
    }
    Desabilitados(const Desabilitados&) = delete;
    ~Desabilitados() { Habilitar(TRUE); }

  private:
    void Habilitar(BOOL enable) {
        for (const HWND window : windows)
            if (IsWindow(window)) CWnd::FromHandle(window)->EnableWindow(enable);
    }
    std::array<HWND, 2> windows;
};

}  // namespace

IMPLEMENT_DYNAMIC(CIBtColor, CBitmapButton)

BEGIN_MESSAGE_MAP(CIBtColor, CBitmapButton)
ON_WM_KILLFOCUS()
ON_CONTROL_REFLECT(BN_CLICKED, &CIBtColor::OnClick)
END_MESSAGE_MAP()

void CIBtColor::OnClick() {
    const HWND field = editor.m_hWnd;
    CIListViewEdit& list = lista;
    const int32_t row = linha, col = coluna;
    {
        const Ocupado asking(perguntando, m_hWnd);
        valor = TextoDe(editor);
        list.AvisarOuvintes(&ListViewEditListener::OnAntesDaCor, row, col);
        if (!IsWindow(field)) return;  // a listener has closed the dialog, and this button with it
        CWnd* dialog = DialogoAcima(GetParent());
        const Desabilitados noInput(dialog, this);
        const bool chosen = Perguntar(dialog);
        if (!IsWindow(field)) return;  // the dialog has gone meanwhile, and this button with it
        if (chosen) {
            editor.SetWindowText(valor);
            valor = TextoDe(editor);
            editor.AtualizarCor();
        }
        list.AvisarOuvintes(&ListViewEditListener::OnDepoisDaCor, row, col);
    }
    if (IsWindow(field)) editor.SetFocus();
}

bool CIBtColor::Perguntar(CWnd* dialog) {
    CMxDocument* document = ACTIVE_DOCUMENT();
    if (!document) return false;
    int number = std::clamp(valor.ToInt(), 0, kUltimoIndice);
    if (document->GetColorPicker()->PickColor(dialog ? dialog->m_hWnd : nullptr, number, &number) !=
        kLispNormal)
        return false;
    valor = TQString(number, 0);
    return true;
}

// The focus has left the cell by the button, so the edit ends here.
void CIBtColor::OnKillFocus(CWnd* next) {
    CBitmapButton::OnKillFocus(next);
    if (!perguntando && next != &editor) editor.Terminar();
}

}  // namespace ListView
