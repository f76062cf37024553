// The owner of a list of translatables.
#include "translator/engine/ListaTraduziveis.h"

namespace traducaoTQ {

void DestruirTraduziveis::operator()(std::vector<ETraduzivel*>* lista) const {
    for (ETraduzivel* traduzivel : *lista) delete traduzivel;
    delete lista;
}

ListaTraduziveis NovaLista() { return ListaTraduziveis(new std::vector<ETraduzivel*>); }

void JuntarA(ListaTraduziveis& destino, ListaTraduziveis origem) {
    if (!origem) return;
    destino->insert(destino->end(), origem->begin(), origem->end());
    origem->clear();
}

}  // namespace traducaoTQ
