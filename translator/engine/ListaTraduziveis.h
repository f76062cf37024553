// The owner of a list of translatables.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {

// Destroys the objects and the list. Whoever keeps pointers to the objects must be gone or emptied
// before.
struct DestruirTraduziveis {
    void operator()(std::vector<ETraduzivel*>* lista) const;
};
using ListaTraduziveis = std::unique_ptr<std::vector<ETraduzivel*>, DestruirTraduziveis>;

ListaTraduziveis NovaLista();  // empty

// Moves the objects of origem, which may be null, behind those of destino.
void JuntarA(ListaTraduziveis& destino, ListaTraduziveis origem);

template <class E, class... Argumentos>
void Acrescentar(ListaTraduziveis& lista, Argumentos&&... argumentos) {
    auto novo = std::make_unique<E>(std::forward<Argumentos>(argumentos)...);
    lista->push_back(novo.get());
    static_cast<void>(novo.release());  // the list has it
}

}  // namespace traducaoTQ
