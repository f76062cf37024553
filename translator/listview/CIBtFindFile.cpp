// The button of a file cell: asks for a drawing and writes its name into the field.
#include "platform/kernel/MxLispEngine.h"
#include "platform/win32/Paths.h"
#include "platform/window/AfxWin.h"
#include "translator/cad/ui/TQFileDialog.h"
#include "translator/listview/BotaoDaCelula.h"
#include "translator/listview/CIFindFilePropriedade.h"

namespace ListView {
namespace {

// Behind the last backslash, up to the first point.
TQString NomeSemCaminho(const TQString& path) {
    const size_t slash = path.rfind(u'\\');
    const TQString name = slash == TQString::npos ? path : TQString(path.substr(slash + 1));
    return name.substr(0, name.find(u'.'));
}

}  // namespace

IMPLEMENT_DYNAMIC(CIBtFindFile, CBitmapButton)

BEGIN_MESSAGE_MAP(CIBtFindFile, CBitmapButton)
ON_WM_KILLFOCUS()
ON_CONTROL_REFLECT(BN_CLICKED, &CIBtFindFile::OnClick)
END_MESSAGE_MAP()

void CIBtFindFile::OnClick() {
    const HWND field = editor.m_hWnd;
    TQString path;
    int status;
    {
        const Ocupado asking(perguntando, m_hWnd);
        status = TQFileDialog(path, true, u"Drawings|*.dwg||", NativePath(pasta).c_str(), u"");
    }
    if (!IsWindow(field)) return;  // the dialog around has gone meanwhile, and this button with it
    if (status == kLispNormal) {
        editor.SetWindowText(caminhoCompleto ? path : NomeSemCaminho(path));
        editor.SetSel(0, -1);
    }
    editor.SetFocus();
}

// The focus has left the cell by the button, so the edit ends here.
void CIBtFindFile::OnKillFocus(CWnd* next) {
    CBitmapButton::OnKillFocus(next);
    if (!perguntando && next != &editor) editor.Terminar();
}

}  // namespace ListView
