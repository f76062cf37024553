// JanelaAusente: what a command says that is run where its window is not to be had.
#pragma once

// Raises std::runtime_error, which names the command lines that do the same work.
[[noreturn]] void JanelaAusente(const char* linhasDeComando);
