// The command KVTRANSLATEEDITDIC: the editor of the dictionary.
#include "translator/module/ComandoEdicaoDicionario.h"

#include "translator/module/JanelaAusente.h"

void ComandoEdicaoDicionario() { JanelaAusente("kelvara db terms, kelvara db import"); }
