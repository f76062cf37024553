// The command KVCFGTRADELANG: the editor of the list of languages.
#include "translator/module/ComandoEdicaoIdiomas.h"

#include "translator/module/JanelaAusente.h"

void ComandoEdicaoIdiomas() { JanelaAusente("kelvara db languages, kelvara db add-language"); }
