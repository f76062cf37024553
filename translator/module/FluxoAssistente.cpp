// The wizard's way of a project from one language to another.
#include "translator/module/FluxoAssistente.h"

#include "translator/cad/Guarded.h"
#include "translator/module/JanelaAusente.h"

void FluxoAssistente(TQString idiomaDestino) {
    Guarded(u"JanelaTraducao", [&] { JanelaAusente("kelvara translate --record"); });
}
