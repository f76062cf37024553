// The scope in which the host takes dialog templates and strings from this module. Opened before
// a command's first dialog and closed after its last; a failure leaves it open, which is meant.
#pragma once

void AbrirRecursos();
void FecharRecursos();
