// Asks for memory that will be read soon.
#pragma once

#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {

// The empty statement matters: a function that does nothing but ask for memory has no effect in the
// compiler's eyes, and GCC leaves calls of it out.
inline void AnteciparMemoria(const void* memoria) {
    __builtin_prefetch(memoria);
    asm volatile("");
}

// All that its text and its key are asked for.
inline void AnteciparTraduzivel(const ETraduzivel* objeto) {
    AnteciparMemoria(objeto);
    AnteciparMemoria(&objeto->GetChave());
}

}  // namespace traducaoTQ
