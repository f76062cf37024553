// Message boxes of the dialogs, with the host's title over the host's main window.
#pragma once

#include "translator/cad/TQString.h"

void Avisar(const TQString& texto);  // button Ok

// The button that was pressed; the buttons as in MxMessageBox.h, combined by sum.
int Perguntar(const TQString& texto, int botoes);

// A text of the translator's catalogue, by number.
TQString Mensagem(int32_t numero);
