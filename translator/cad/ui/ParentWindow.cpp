// Finds the windows above the translator's dialogs.
#include "translator/cad/ui/ParentWindow.h"

#include <QWidget>

#include "platform/kernel/MxSystemServices.h"
#include "platform/window/AfxWin.h"

QWidget* MainWidget() {
    CMxSystemServices* services = GetMxSystemServices();
    CMxMainWindowService* holder = services ? services->GetMainWindowService() : nullptr;
    return holder ? holder->GetMainWidget() : nullptr;
}

CWnd* ParentWindow() {
    CWinThread* thread = AfxGetThread();
    if (CWnd* main = thread ? thread->GetMainWnd() : nullptr) return main;
    QWidget* widget = MainWidget();
    return widget ? CWnd::FromHandle(reinterpret_cast<HWND>(widget->winId())) : nullptr;
}

TQString FromWindow(HWND window) {
    CString text;
    if (CWnd* object = CWnd::FromHandle(window)) object->GetWindowText(text);
    return text;
}
