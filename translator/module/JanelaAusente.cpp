// What a command says that is run where its window is not to be had.
#include "translator/module/JanelaAusente.h"

#include <stdexcept>
#include <string>

void JanelaAusente(const char* linhasDeComando) {
    throw std::runtime_error(
        std::string(
            "the window of this command is not part of this build; the same work is done by ") +
        linhasDeComando);
}
