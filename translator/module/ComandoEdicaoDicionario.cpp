// The command KVTRANSLATEEDITDIC: the dictionary editor.
#include "translator/module/ComandoEdicaoDicionario.h"

#include "translator/cad/ui/ParentWindow.h"
#include "translator/dialogs/ui/IEdicaoDicionario.h"
#include "translator/module/EscopoDeRecursos.h"

void ComandoEdicaoDicionario() {
    AbrirRecursos();
    IEdicaoDicionario(ParentWindow()).DoModal();
    FecharRecursos();
}
