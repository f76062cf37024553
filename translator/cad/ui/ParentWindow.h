// The windows of the host and of the program, as the translator's dialogs need them.
#pragma once

#include "platform/window/CWnd.h"
#include "translator/cad/TQString.h"

class QWidget;

QWidget* MainWidget();  // the host's; null without services or in a program without windows

// What is to own a modal dialog: the main window of the thread if there is one, otherwise the
// host's main widget; null in a program without windows.
CWnd* ParentWindow();

TQString FromWindow(HWND window);  // the window's text; empty for no window
