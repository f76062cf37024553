// FluxoAssistente: the way of a project from one language to another, with the wizard.
#pragma once

#include "translator/cad/TQString.h"

// idiomaDestino is the key of the language that the wizard offers first, "-1" for none. A failure
// is logged and thrown on.
void FluxoAssistente(TQString idiomaDestino);
