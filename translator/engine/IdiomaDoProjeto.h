// The language of the active document's project, a setting of the host.
#pragma once

#include "translator/cad/TQString.h"

namespace traducaoTQ {

TQString IdiomaDoProjeto();  // as decimal digits, "-1" until it is set
void DefinirIdiomaDoProjeto(int idioma);
// Both raise an OdError where no drawing is open. This tells whether one is.
bool HaProjeto();

}  // namespace traducaoTQ
