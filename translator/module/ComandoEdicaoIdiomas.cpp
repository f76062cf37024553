// The command KVCFGTRADELANG: the language editor.
#include "translator/module/ComandoEdicaoIdiomas.h"

#include "translator/dialogs/ui/IEdicaoIdiomas.h"
#include "translator/module/EscopoDeRecursos.h"

void ComandoEdicaoIdiomas() {
    AbrirRecursos();
    IEdicaoIdiomas(nullptr).DoModal();
    FecharRecursos();
}
