// The command KVTRANSLATEPROJ: the translation of the project.
#include "translator/module/ComandoTraduzirProjeto.h"

#include "translator/module/JanelaAusente.h"

void ComandoTraduzirProjeto() { JanelaAusente("kelvara lines, kelvara translate"); }
