// The language of the active document's project, a setting of the host.
#pragma once

#include <memory>

#include "platform/kernel/KVProject.h"
#include "translator/cad/TQString.h"

TQString IdiomaDoProjeto();  // as decimal digits, "-1" until it is set
void DefinirIdiomaDoProjeto(int idioma);
