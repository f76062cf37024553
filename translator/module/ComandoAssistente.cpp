// The command KVTRANSLATEASSIST.
#include "translator/module/ComandoAssistente.h"

#include "translator/module/FluxoAssistente.h"

void ComandoAssistente() { FluxoAssistente(u"-1"); }
